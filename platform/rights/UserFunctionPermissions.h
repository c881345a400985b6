#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/rights/EnFunctionCode.h"

#include <QString>

#include <memory>
#include <string>

namespace Zel {

/// What the user may do, by a policy that the site's administrator keeps in a JSON file:
///     { "comment": "free text",
///       "deniedTools":      ["Measure.*", "View.Edit?"],
///       "deniedEditors":    ["Admin*"],
///       "grantedFunctions": [140],
///       "renamedTools":     {"OldKey": "NewKey"} }
/// Every member may be missing; wildcards are those of QxWildcard, and keys are case-sensitive.
/// Without a policy all tools and editors are allowed and no function is granted. A policy that is
/// named but cannot be read, or holds anything else than the above, denies every tool and editor,
/// grants no function and renames nothing; the log says why. GUI thread only.
class MOVARA_PLATFORM_EXPORT UserFunctionPermissions
{
public:
    /// The rights of this process' user, read on first use from policyFileName().
    static UserFunctionPermissions &instance();
    /// Reads the policy @p fileName; an empty name stands for no policy.
    explicit UserFunctionPermissions(const QString &fileName);
    ~UserFunctionPermissions();
    UserFunctionPermissions(const UserFunctionPermissions &) = delete;
    UserFunctionPermissions &operator=(const UserFunctionPermissions &) = delete;

    /// Where the policy is: the environment variable MOVARA_POLICY_FILE, else the site setting
    /// "Rights.PolicyFile" (relative to the site file's folder), else empty. Site settings that
    /// cannot be read might name a policy, so a name that cannot be read is given then, which
    /// denies everything.
    [[nodiscard]] static QString policyFileName();
    /// Reads the policy @p fileName in place of the present one.
    void load(const QString &fileName);

    /// Whether the user may use the tool @p key.
    /// @param logDenial has a denial written to the log, once for each key.
    [[nodiscard]] bool haveToolPermission(const std::string &key, bool logDenial) const;
    /// The same for the editor @p name.
    [[nodiscard]] bool haveEditorPermission(const std::string &name, bool logDenial) const;
    /// Whether the function @p code (EnFunctionCode, or a client's own) is granted.
    /// @param logDenial has a denial written to the log, once for each code.
    [[nodiscard]] bool havePermission(int code, bool logDenial) const;

    /// Rewrites an outdated tool identifier into its current form, following several renamings in a
    /// row; any other key stays as it is.
    void renameTool(std::string &key) const;
    /// renameTool() of the one instance.
    static void getNewToolID(std::string &key) { instance().renameTool(key); }

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace Zel
