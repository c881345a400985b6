#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QString>

#include <functional>
#include <optional>
#include <utility>

/// Store of property values: text by key. Properties refer to it, never own it.
/// GUI thread only. Failures are told in the log by the store and answered with false or nothing.
class MOVARA_PLATFORM_EXPORT KxPropertySerializer
{
public:
    KxPropertySerializer() = default;
    KxPropertySerializer(const KxPropertySerializer &) = delete;
    KxPropertySerializer &operator=(const KxPropertySerializer &) = delete;
    virtual ~KxPropertySerializer();

    /// Told when storing begins to fail, with the place (a file) that cannot be written; then not
    /// again before something has been stored there.
    using ProblemHandler = std::function<void(const QString &place)>;
    /// An empty function ends it.
    void setProblemHandler(ProblemHandler handler) { m_problemHandler = std::move(handler); }

    /// The text stored under @p key, or nothing when there is none.
    [[nodiscard]] virtual std::optional<QString> read(const QString &key) const = 0;
    /// Stores @p text under @p key. False when it could not be stored; an empty key never can. What
    /// could not is remembered: read() answers with it, and each later write, and flush(), tries to
    /// store it again.
    virtual bool write(const QString &key, const QString &text) = 0;
    /// Forgets the text under @p key. True also when there was none; false when it could not be
    /// removed.
    virtual bool remove(const QString &key) = 0;
    /// Tries to store what could not be stored before; false while something is left.
    virtual bool flush() { return true; }

protected:
    void tellProblem(const QString &place) const;

private:
    ProblemHandler m_problemHandler;
};
