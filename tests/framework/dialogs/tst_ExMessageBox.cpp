#include "framework/dialogs/ExMessageBox.h"
#include "framework/dialogs/ExPasswordInputWidget.h"
#include "platform/properties/KxPropertyPool.h"
#include "tests/support/FakeApplication.h"
#include "tests/support/NextDialog.h"
#include "tests/support/PrivateSettings.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <ctime>
#include <memory>

namespace {

QString str(const char *text)
{
    return QString::fromUtf8(text);
}

/// What the user notices of an open box.
QString described(QWidget &dialog)
{
    auto &box = dynamic_cast<ExMessageBox &>(dialog);
    QStringList texts{QString::number(box.icon()), box.windowTitle(), box.text()};
    for (const auto button : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No,
             QMessageBox::Cancel, QMessageBox::Close}) {
        if (const auto *const shown = qobject_cast<QPushButton *>(box.button(button))) {
            texts.append(shown->text().remove(u'&') + str(shown->isDefault() ? "*" : ""));
        }
    }
    const QWidget *const parent = box.parentWidget();
    texts.append(parent == nullptr ? str("-") : parent->objectName());
    const bool isArrow = QApplication::overrideCursor()->shape() == Qt::ArrowCursor;
    return texts.join(u'|') % str(box.isModal() ? "|modal" : "") % str(isArrow ? "|arrow" : "");
}

template <typename Widget>
Widget *child(QWidget &dialog, const char *name)
{
    return dialog.findChild<Widget *>(QLatin1String(name));
}

const QString passwordForm = str("^[a-hjkmnp-z]{3}[2-9]{2}[a-hjkmnp-z]{3}$");

} // namespace

class tst_ExMessageBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void boxes_data();
    void boxes();
    void password_data();
    void password();
    void passwordDialog();
    void generatedPasswords();

private:
    PrivateSettings m_settings;
    std::unique_ptr<FakeApplication> m_app;
    std::unique_ptr<QWidget> m_main;
};

void tst_ExMessageBox::init()
{
    QCoreApplication::setApplicationName(str("Client"));
    m_app = std::make_unique<FakeApplication>();
    m_main = std::make_unique<QWidget>();
    m_main->setObjectName(str("main"));
    m_app->mainWidget = m_main.get();
    ExApplication::busy();
}

void tst_ExMessageBox::cleanup()
{
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    ExApplication::notBusy();
    QVERIFY(QApplication::overrideCursor() == nullptr);
    m_main.reset();
    m_app.reset();
    QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
}

using Show = std::function<int(QWidget *parent)>;

void tst_ExMessageBox::boxes_data()
{
    QTest::addColumn<Show>("show");
    QTest::addColumn<QString>("seen");
    QTest::addColumn<int>("byReturn");
    QTest::addColumn<int>("byEscape");
    using Box = ExMessageBox;
    const auto row
        = [](const char *name, const Show &show, const char *seen, int byReturn, int byEscape) {
              QTest::newRow(name) << show << str(seen) << byReturn << byEscape;
          };
    row(
        "error", [](QWidget *) { return Box::error(str("E")); }, "3|Client|E|OK*|main|modal|arrow",
        Box::Ok, Box::Ok);
    row(
        "warning",
        [](QWidget *) { return Box::warning(str("W"), Box::Ok | Box::Cancel, Box::Cancel); },
        "2|Client|W|OK|Cancel*|main|modal|arrow", Box::Cancel, Box::Cancel);
    row(
        "information",
        [](QWidget *parent) {
            return Box::information(str("I"), Box::Close, Box::NoButton, parent, str("Title"));
        },
        "1|Title|I|Close*|own|modal|arrow", Box::Close, Box::Close);
    row(
        "question",
        [](QWidget *) { return Box::question(str("Q"), Box::Yes | Box::Cancel, Box::Yes); },
        "4|Client|Q|Yes*|Cancel|main|modal|arrow", Box::Yes, Box::Cancel);
    row(
        "no application",
        [this](QWidget *) {
            m_app.reset();
            return Box::error(str("E"));
        },
        "3|Client|E|OK*|-|modal|arrow", Box::Ok, Box::Ok);
    row(
        "overwrite", [](QWidget *) { return int(Box::overwriteConfirmation(str("/a.png"))); },
        "1|Client|/a.png already exists.|Overwrite|Cancel*|main|modal|arrow", 0, 0);
    row(
        "delete", [](QWidget *parent) { return int(Box::deleteConfirmation(str("D?"), parent)); },
        "1|Client|D?|Delete|Cancel*|own|modal|arrow", 0, 0);
}

void tst_ExMessageBox::boxes()
{
    QFETCH(Show, show);
    QWidget own;
    own.setObjectName(str("own"));
    QString seen;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        const NextDialog user([&](QWidget &dialog) {
            seen = described(dialog);
            QTest::keyClick(&dialog, key);
        });
        const int answer = show(&own);
        QVERIFY(user.hasAppeared());
        QTEST(seen, "seen");
        QTEST(answer, key == Qt::Key_Return ? "byReturn" : "byEscape");
    }
    const NextDialog user([&](QWidget &dialog) {
        if (auto *const ok = static_cast<QMessageBox &>(dialog).button(QMessageBox::Ok)) {
            QTest::mouseClick(ok, Qt::LeftButton);
        } else {
            QTest::keyClick(&dialog, Qt::Key_Escape);
        }
    });
    const int answer = show(&own);
    const bool confirms = seen.contains(u"Overwrite") || seen.contains(u"Delete");
    QVERIFY(user.hasAppeared() && (!confirms || answer == 1));
}

void tst_ExMessageBox::password_data()
{
    QTest::addColumn<bool>("generate");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("form");
    QTest::newRow("typed") << false << str("s3cret") << str("mOK") << str("^s3cret$");
    QTest::newRow("cancelled") << true << str("s3cret") << str("mCancel") << str("^$");
    QTest::newRow("proposed") << true << QString() << str("mOK") << passwordForm;
    QTest::newRow("typed over the proposal") << true << str("mine") << str("mOK") << str("^mine$");
}

void tst_ExMessageBox::password()
{
    QFETCH(bool, generate);
    QFETCH(QString, form);
    QString seen;
    const NextDialog user([&](QWidget &dialog) {
        QFETCH(QString, typed);
        QFETCH(QString, button);
        seen = dialog.windowTitle() % u'|' % child<QLabel>(dialog, "mMessage")->text() % u'|'
            % dialog.parentWidget()->objectName();
        QTest::keyClicks(child<QLineEdit>(dialog, "mPassword"), typed);
        QTest::mouseClick(child<QPushButton>(dialog, qPrintable(button)), Qt::LeftButton);
    });
    const QString answer = ExMessageBox::password(str("Why"), nullptr, str("Export"), generate);
    QVERIFY(user.hasAppeared());
    QCOMPARE(seen, str("Export|Why|main"));
    QVERIFY2(QRegularExpression(form).match(answer).hasMatch(), qPrintable(answer));
}

void tst_ExMessageBox::passwordDialog()
{
    ExPasswordInputWidget dialog(str("Why"));
    QVERIFY(dialog.isModal() && child<QGridLayout>(dialog, "gridLayout") != nullptr);
    QStringList texts{dialog.windowTitle()};
    for (const char *name : {"mGenerate", "mOK", "mCancel"}) {
        texts.append(child<QPushButton>(dialog, name)->text());
    }
    QCOMPARE(texts.join(u' '), str("Password Generate OK Cancel"));
    auto *const field = child<QLineEdit>(dialog, "mPassword");
    QCOMPARE(field->echoMode(), QLineEdit::Password);
    QTest::mouseClick(child<QPushButton>(dialog, "mGenerate"), Qt::LeftButton);
    QCOMPARE(field->selectedText(), dialog.password());
    QCOMPARE(field->echoMode(), QLineEdit::Normal);
    QTest::keyClicks(field, str("x"));
    QCOMPARE(dialog.password(), str("x"));
    QCOMPARE(field->echoMode(), QLineEdit::Password);
}

void tst_ExMessageBox::generatedPasswords()
{
    ExPasswordInputWidget dialog(str("Why"));
    const auto generated = [&dialog] {
        dialog.slotGenerateClicked();
        return dialog.password();
    };
    QString first;
    QString second;
    std::time_t start = 0;
    do { // Both in one second.
        start = std::time(nullptr);
        first = generated();
        second = generated();
    } while (std::time(nullptr) != start);
    QCOMPARE(first, second);
    QTRY_VERIFY(generated() != first);

    KxPropertyPool::instance().find<QString>("Hidden.PasswordGenerator")->setValue(str("System"));
    QSet<QString> all;
    constexpr int count = 200;
    for (int i = 0; i < count; ++i) {
        const QString next = generated();
        QVERIFY2(QRegularExpression(passwordForm).match(next).hasMatch(), qPrintable(next));
        all.insert(next);
    }
    QCOMPARE(all.size(), count);
}

QTEST_MAIN(tst_ExMessageBox)
#include "tst_ExMessageBox.moc"
