// The administrator's policy file: what is not a policy denies everything.
#include "platform/rights/UserFunctionPermissions.h"
#include "tests/fuzz/FuzzInput.h"

#include <QJsonDocument>

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static FuzzFile file("policy.json");
    const QByteArray bytes = bytesOf(data, size);
    const Zel::UserFunctionPermissions rights(file.write(bytes));
    const bool allowed = rights.haveToolPermission("Measure.Distance", false);
    require(!allowed || QJsonDocument::fromJson(bytes).isObject());
    (void)rights.haveEditorPermission("Studies", false);
    (void)rights.havePermission(140, false);
    std::string key = "OldKey";
    rights.renameTool(key);
    return 0;
}
