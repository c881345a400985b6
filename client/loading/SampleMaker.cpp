#include "client/loading/SampleMaker.h"

#include "client/sample/SampleStudy.h"
#include "platform/util/McGuard.h"
#include "platform/util/McProgressInterface.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <functional>
#include <utility>

namespace {

/// Passes on to functions that may be called in any thread.
class Progress final : public McProgressInterface
{
public:
    Progress(std::function<void(float)> tell, const std::atomic<bool> &isCancelled)
        : m_tell(std::move(tell))
        , m_isCancelled(isCancelled)
    { }

    int wasInterrupted() override { return m_isCancelled ? 1 : 0; }
    void setProgressValue(float value) override { m_tell(value); }

private:
    std::function<void(float)> m_tell;
    const std::atomic<bool> &m_isCancelled;
};

/// Written last: a folder without it is not complete.
QString markFile()
{
    return SampleMaker::folder() % QLatin1String(".complete");
}

QString writeMark()
{
    QFile mark(markFile());
    return mark.open(QIODevice::WriteOnly)
        ? QString()
        : SampleMaker::tr("%1 cannot be written: %2").arg(mark.fileName(), mark.errorString());
}

} // namespace

SampleMaker::SampleMaker(QObject *parent)
    : QObject(parent)
{ }

SampleMaker::~SampleMaker()
{
    cancel();
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

QString SampleMaker::folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
        % QLatin1String("/movara-workstation/sample-study-" MOVARA_VERSION);
}

void SampleMaker::start()
{
    if (QFile::exists(markFile())) {
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT finished({}); }, Qt::QueuedConnection);
        return;
    }
    m_thread = std::thread([this] { make(); });
}

void SampleMaker::make()
{
    Progress progress(
        [this](float value) {
            constexpr float percent = 100;
            Q_EMIT progressChanged(static_cast<int>(value * percent)); // Queued to the GUI thread.
        },
        m_isCancelled);
    QString problem;
    if (!QDir().mkpath(folder())) {
        problem = tr("The folder %1 cannot be made.").arg(folder());
    } else {
        std::string error;
        const std::string thrown = McGuard::run(
            [&] { error = SampleStudy::write(McFilename(folder().toStdString()), &progress); });
        problem = QString::fromStdString(error + thrown);
    }
    if (m_isCancelled) {
        problem = tr("Making the sample study was cancelled."); // Else it is told in English.
    } else if (problem.isEmpty()) {
        problem = writeMark();
    }
    QMetaObject::invokeMethod(
        this, [this, problem] { Q_EMIT finished(problem); }, Qt::QueuedConnection);
}
