#include "client/session/WorkstationSessions.h"

#include "client/app/Workstation.h"
#include "client/session/SessionFile.h"
#include "client/session/SessionState.h"
#include "framework/application/ExApplication.h"
#include "framework/dialogs/ExMessageBox.h"
#include "platform/util/McLogFile.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QPushButton>
#include <QStandardPaths>

namespace {

WorkstationSessions *theSessions = nullptr;

} // namespace

WorkstationSessions::WorkstationSessions(Workstation &workstation)
    : m_studies(workstation.session())
    , m_viewers(workstation, [this] { m_links.linkAgain(); })
    , m_links(workstation)
    , m_measurements(workstation.measurements())
    , m_restore(workstation.session())
{
    theSessions = this;
    connect(&m_restore, &SessionRestore::finished, this, &WorkstationSessions::restored);
    const auto changed = [this] {
        if (m_autosave) {
            m_autosave->changed();
        }
    };
    connect(&workstation.session(), &StudySession::scanned, this, changed);
    connect(&workstation.session(), &StudySession::closed, this, changed);
    connect(&workstation.measurements(), &MeasurementList::changed, this, changed);
}

WorkstationSessions::~WorkstationSessions()
{
    theSessions = nullptr;
}

WorkstationSessions *WorkstationSessions::instancePointer()
{
    return theSessions;
}

bool WorkstationSessions::isRestoringNow()
{
    return theSessions != nullptr && theSessions->isRestoring();
}

QString WorkstationSessions::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        % QLatin1String("/movara-workstation/sessions");
}

ExSessionData WorkstationSessions::take() const
{
    ExSessionData session;
    McDArray<ExSerializable *> participants;
    ExSerializable::instances(participants);
    for (ExSerializable *participant : participants) {
        participant->serialize(session);
    }
    return session;
}

QString WorkstationSessions::save(const QString &file)
{
    QString problem = SessionFile::write(file, SessionFile::toBytes(take()));
    if (problem.isEmpty()) {
        m_measurements.setSaved();
    }
    return problem;
}

QString WorkstationSessions::check(const QString &file, ExSessionData &session) const
{
    QString problem = SessionFile::read(file, session);
    if (problem.isEmpty() && !SessionState::isSound(session)) {
        return tr("The session %1 holds something that this workstation does not understand. Open "
                  "it with the version of the workstation that has saved it.")
            .arg(file);
    }
    return problem;
}

QString WorkstationSessions::open(const QString &file)
{
    ExSessionData session;
    QString problem = check(file, session);
    if (problem.isEmpty()) {
        restore(session, nullptr);
    }
    return problem;
}

void WorkstationSessions::restore(const ExSessionData &session, std::unique_ptr<AutosaveSlot> left)
{
    m_restore.giveUp(); // Of one that is under way; what is told of that is not about this one.
    m_restored = std::move(left);
    m_restore.start(session);
}

void WorkstationSessions::restored(bool isRestored, const QStringList &missingPaths)
{
    QStringList missing;
    for (const QString &path : missingPaths) {
        missing += tr("the folder or file %1").arg(path);
    }
    bool isCutShort = false;
    if (isRestored) {
        missing += m_viewers.missing();
        isCutShort = m_restore.wasCancelled() && !missing.isEmpty();
        if (!m_restored) {
            m_measurements.setSaved(); // What a crash has left is in no file of the user's.
        }
        if (m_restored && m_autosave && !isCutShort) {
            m_autosave->setSlot(std::move(m_restored));
        }
    }
    m_restored.reset(); // What was not restored is offered again at the next start.
    Q_EMIT finished(
        isRestored, missing.isEmpty() ? QString() : message(missing, isRestored, isCutShort));
}

QString WorkstationSessions::message(const QStringList &missing, bool isRestored, bool isCutShort)
{
    const QString what = isCutShort ? tr("Opening was cancelled. Of the session there is missing:")
        : isRestored ? tr("The session is open, but some of it is not there any more:")
                     : tr("The session is not opened. There are no images any more in:");
    const QString advice = isCutShort
        ? tr("Open the session again to see all of it.")
        : tr("Look whether the drive is connected and nothing was moved, then open the session "
             "again.");
    return what % QStringLiteral("\n\n• ") % missing.join(QStringLiteral("\n• "))
        % QStringLiteral("\n\n") % advice;
}

QStringList WorkstationSessions::unsaved()
{
    QStringList names;
    McDArray<ExSerializable *> participants;
    ExSerializable::instances(participants);
    for (const ExSerializable *participant : participants) {
        if (participant->unsavedData()) {
            names += participant->displayName();
        }
    }
    return names;
}

void WorkstationSessions::startAutosave(
    const QString &folder, const std::function<void()> &otherwise)
{
    m_left = AutosaveSlot::takeLeft(folder);
    std::unique_ptr<AutosaveSlot> own = AutosaveSlot::takeFree(folder);
    if (!own) {
        const QString problem
            = tr("Nothing is saved automatically: make room on the disk for %1, or allow writing "
                 "there, then start the workstation again.")
                  .arg(folder);
        theLogInstance().warnf("Autosave: %s\n", problem.toUtf8().constData());
        Q_EMIT autosaveFailed(problem);
    }
    m_autosave
        = std::make_unique<Autosave>(std::move(own), [this]() -> std::optional<ExSessionData> {
              // Until a session is there again its own file is better than what is shown.
              return isRestoring() ? std::nullopt : std::optional(take());
          });
    connect(m_autosave.get(), &Autosave::failed, this, &WorkstationSessions::autosaveFailed);
    m_left ? ask(otherwise) : otherwise();
}

void WorkstationSessions::ask(const std::function<void()> &otherwise)
{
    const QFileInfo file(m_left->file());
    theLogInstance().warnf("The workstation was not closed properly; %s can be restored.\n",
        file.filePath().toUtf8().constData());
    auto *const box = new QMessageBox(QMessageBox::Question, tr("Movara"),
        tr("The workstation was not closed properly. Restore what was open?"),
        QMessageBox::NoButton, ExApplication::instance().dialogParent());
    box->setObjectName(QStringLiteral("RestoreQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(
        tr("It was saved automatically on %1.")
            .arg(QLocale().toString(file.lastModified(), QLocale::ShortFormat)));
    QPushButton *const restore = box->addButton(tr("&Restore"), QMessageBox::AcceptRole);
    QPushButton *const discard = box->addButton(tr("&Discard"), QMessageBox::DestructiveRole);
    QPushButton *const later = box->addButton(tr("&Later"), QMessageBox::RejectRole);
    restore->setToolTip(tr("Open the same images in the same views, with all measurements"));
    discard->setToolTip(tr("Delete what was saved; it cannot be restored any more"));
    later->setToolTip(tr("Keep it, and ask again at the next start"));
    box->setDefaultButton(restore);
    box->setEscapeButton(later);
    connect(box, &QMessageBox::finished, this, [=, this] {
        if (box->clickedButton() == restore) {
            restoreLeft(otherwise);
            return;
        }
        if (box->clickedButton() == discard) {
            m_left->clear();
        }
        m_left.reset();
        otherwise();
    });
    box->open();
}

void WorkstationSessions::restoreLeft(const std::function<void()> &otherwise)
{
    ExSessionData session;
    QString problem = check(m_left->file(), session);
    if (problem.isEmpty()) {
        m_restore.giveUp(); // Of one that is under way; what is told of that is not about this one.
        const auto ended = [otherwise](bool isRestored, const QStringList &missing) {
            // Where nothing is missing the user has chosen to see something else, or nothing.
            if (!isRestored && !missing.isEmpty()) {
                otherwise();
            }
        };
        connect(&m_restore, &SessionRestore::finished, this, ended, Qt::SingleShotConnection);
        restore(session, std::move(m_left));
        return;
    }
    // It would fail at every start. Somebody else may still make something of it.
    if (const QString kept = m_left->setAside(); !kept.isEmpty()) {
        problem += QStringLiteral("\n\n") % tr("It is kept as %1.").arg(kept);
    }
    m_left.reset();
    otherwise();
    Q_EMIT finished(false, problem);
}
