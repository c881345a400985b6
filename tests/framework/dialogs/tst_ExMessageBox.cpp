#include "framework/dialogs/ExMessageBox.h"
#include "framework/dialogs/ExPasswordInputWidget.h"
#include "tests/support/Prelude.h"

namespace {

using Box = ExMessageBox;
using Show = std::function<int(QWidget *parent)>;

/// What the user notices of an open box.
QString described(QWidget &dialog)
{
    auto &box = dynamic_cast<ExMessageBox &>(dialog);
    QStringList texts{QString::number(box.icon()), box.windowTitle(), box.text()};
    for (const auto button : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No,
             QMessageBox::Cancel, QMessageBox::Close}) {
        if (const auto *const shown = qobject_cast<QPushButton *>(box.button(button))) {
            texts.append(shown->text().remove(u'&') + (shown->isDefault() ? u"*" : u""));
        }
    }
    const QWidget *const parent = box.parentWidget();
    texts.append(parent == nullptr ? u"-"_s : parent->objectName());
    const bool isArrow = QApplication::overrideCursor()->shape() == Qt::ArrowCursor;
    return texts.join(u'|') % (box.isModal() ? u"|modal" : u"") % (isArrow ? u"|arrow" : u"");
}

template <typename Widget>
Widget *child(QWidget &dialog, const char *name)
{
    return dialog.findChild<Widget *>(QLatin1String(name));
}

const QString passwordForm = u"^[a-hjkmnp-z]{3}[2-9]{2}[a-hjkmnp-z]{3}$"_s;

} // namespace

class tst_ExMessageBox : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QCoreApplication::setApplicationName(u"Client"_s);
        m_app = std::make_unique<FakeApplication>();
        m_main = std::make_unique<QWidget>();
        m_main->setObjectName(u"main"_s);
        m_app->mainWidget = m_main.get();
        ExApplication::busy();
    }

    void cleanup()
    {
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        ExApplication::notBusy();
        QVERIFY(QApplication::overrideCursor() == nullptr);
        m_main.reset();
        m_app.reset();
        QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
    }

    void boxes_data()
    {
        const Rows<Show, QString, int, int, int> row(
            "show", "seen", "byReturn", "byEscape", "byOk");
        const auto box = [&row](const char *seen, int byReturn, int byEscape, int byOk,
                             const Show &show) { row(seen, show, seen, byReturn, byEscape, byOk); };
        box("3|Client|E|OK*|main|modal|arrow", Box::Ok, Box::Ok, Box::Ok,
            [](QWidget *) { return Box::error(u"E"_s); });
        box("2|Client|W|OK|Cancel*|main|modal|arrow", Box::Cancel, Box::Cancel, Box::Ok,
            [](QWidget *) { return Box::warning(u"W"_s, Box::Ok | Box::Cancel, Box::Cancel); });
        box("1|Title|I|Close*|own|modal|arrow", Box::Close, Box::Close, Box::Close,
            [](QWidget *parent) {
                return Box::information(u"I"_s, Box::Close, Box::NoButton, parent, u"Title"_s);
            });
        box("4|Client|Q|Yes*|Cancel|main|modal|arrow", Box::Yes, Box::Cancel, Box::Cancel,
            [](QWidget *) { return Box::question(u"Q"_s, Box::Yes | Box::Cancel, Box::Yes); });
        box("1|Client|/a.png already exists.|Overwrite|Cancel*|main|modal|arrow", 0, 0, 1,
            [](QWidget *) { return int(Box::overwriteConfirmation(u"/a.png"_s)); });
        box("1|Client|D?|Delete|Cancel*|own|modal|arrow", 0, 0, 1,
            [](QWidget *parent) { return int(Box::deleteConfirmation(u"D?"_s, parent)); });
        box("3|Client|E|OK*|-|modal|arrow", Box::Ok, Box::Ok, Box::Ok, [this](QWidget *) {
            m_app.reset();
            return Box::error(u"E"_s);
        });
    }

    void boxes()
    {
        QFETCH(Show, show);
        QWidget own;
        own.setObjectName(u"own"_s);
        for (const std::string way : {"byReturn", "byEscape", "byOk"}) {
            QString seen;
            const NextDialog user([&](QWidget &dialog) {
                seen = described(dialog);
                auto *const ok = dynamic_cast<Box &>(dialog).button(Box::Ok);
                if (way == "byOk" && ok != nullptr) {
                    QTest::mouseClick(ok, Qt::LeftButton);
                } else {
                    QTest::keyClick(&dialog, way == "byReturn" ? Qt::Key_Return : Qt::Key_Escape);
                }
            });
            QTEST(show(&own), way.c_str());
            QTEST(seen, "seen");
        }
    }

    void password()
    {
        // Whether one is proposed, what is typed, the button, what the answer looks like
        const std::tuple<bool, QString, const char *, QString> rows[]
            = {{false, u"s3cret"_s, "mOK", u"^s3cret$"_s}, {true, u"s3cret"_s, "mCancel", u"^$"_s},
                {true, QString(), "mOK", passwordForm}, {true, u"mine"_s, "mOK", u"^mine$"_s}};
        for (const auto &row : rows) {
            const auto &[generate, typed, button, form] = row;
            QString seen;
            const NextDialog user([&](QWidget &dialog) {
                seen = dialog.windowTitle() % u'|' % child<QLabel>(dialog, "mMessage")->text()
                    % u'|' % dialog.parentWidget()->objectName();
                QTest::keyClicks(child<QLineEdit>(dialog, "mPassword"), std::get<1>(row));
                QTest::mouseClick(child<QPushButton>(dialog, std::get<2>(row)), Qt::LeftButton);
            });
            const QString answer = ExMessageBox::password(u"Why"_s, nullptr, u"Export"_s, generate);
            QCOMPARE(seen, u"Export|Why|main"_s);
            QVERIFY2(QRegularExpression(form).match(answer).hasMatch(), qPrintable(answer));
        }
    }

    void parentGoesFirst()
    {
        for (const bool asksPassword : {false, true}) {
            auto *const parent = new QWidget;
            const NextDialog user([parent](QWidget &) { delete parent; });
            if (asksPassword) {
                QCOMPARE(ExMessageBox::password(u"Why"_s, parent, u"Export"_s, true), QString());
            } else {
                QCOMPARE(ExMessageBox::question(
                             u"Why"_s, Box::Yes | Box::No, Box::Yes, parent, QString()),
                    Box::NoButton);
            }
            QVERIFY(user.hasAppeared());
        }
    }
    void passwordDialog()
    {
        ExPasswordInputWidget dialog(u"Why"_s);
        auto *const field = child<QLineEdit>(dialog, "mPassword");
        QCOMPARE(field->echoMode(), QLineEdit::Password);
        QTest::mouseClick(child<QPushButton>(dialog, "mGenerate"), Qt::LeftButton);
        QCOMPARE(field->selectedText(), dialog.password());
        QCOMPARE(field->echoMode(), QLineEdit::Normal);
        QTest::keyClicks(field, u"x"_s);
        QCOMPARE(dialog.password(), u"x"_s);
        QCOMPARE(field->echoMode(), QLineEdit::Password);
    }

    void generatedPasswords()
    {
        ExPasswordInputWidget dialog(u"Why"_s);
        const auto generated = [&dialog] {
            dialog.slotGenerateClicked();
            return dialog.password();
        };
        const QString first = generated();
        QTRY_VERIFY(generated() == generated()); // Both in one second.
        QTRY_VERIFY(generated() != first);

        KxPropertyPool::instance().find<QString>("Hidden.PasswordGenerator")->setValue(u"System"_s);
        QSet<QString> all;
        constexpr int count = 200;
        for (int i = 0; i < count; ++i) {
            const QString next = generated();
            QVERIFY2(QRegularExpression(passwordForm).match(next).hasMatch(), qPrintable(next));
            all.insert(next);
        }
        QCOMPARE(all.size(), count);
    }

private:
    std::unique_ptr<FakeApplication> m_app;
    std::unique_ptr<QWidget> m_main;
};

QTEST_MAIN(tst_ExMessageBox)
#include "tst_ExMessageBox.moc"
