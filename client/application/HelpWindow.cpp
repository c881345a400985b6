#include "client/application/HelpWindow.h"

#include "client/application/Translations.h"
#include "client/application/WorkstationDecoration.h"
#include "framework/tools/ExTool.h"
#include "platform/toolkit/QxStyleFactory.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// Headings of this level are those of tools.
constexpr int toolLevel = 4;

QString fileName()
{
    const QString translated = HelpWindow::location() % QLatin1String("workstation.")
        % Translations::current() % QLatin1String(".md");
    return QFile::exists(translated) ? translated
                                     : HelpWindow::location() % QLatin1String("workstation.md");
}

QUrl manualUrl()
{
    return QUrl(QLatin1String("qrc") % fileName());
}

QString contents(const QUrl &page)
{
    QFile file(QLatin1Char(':') % page.path());
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// As the usual viewers of Markdown make anchors of headings.
QString anchorOf(const QString &heading)
{
    static const QRegularExpression others(
        QStringLiteral("[^\\w -]"), QRegularExpression::UseUnicodePropertiesOption);
    return QString(heading).remove(others).toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
}

QString toolAnchor(const QString &key)
{
    return QLatin1String("tool-") % key.toLower().replace(QLatin1Char('.'), QLatin1Char('-'));
}

/// The tools that the user may use and that have a text, by category.
std::vector<std::string> toolKeys(const WorkstationDecoration &decoration)
{
    std::vector<std::string> keys;
    ExTool::getDecorationKeyList(keys, false);
    std::erase_if(
        keys, [&decoration](const std::string &key) { return !decoration.isKnown(key.c_str()); });
    std::stable_sort(keys.begin(), keys.end(), [&](const std::string &a, const std::string &b) {
        return decoration.category(a.c_str()) < decoration.category(b.c_str());
    });
    return keys;
}

/// With the key, by which the files of tool bars and policies name the tool.
QString toolText(const char *key, const WorkstationDecoration &decoration)
{
    using Role = QxStyleFactory::ColorRole;
    const QString grey
        = QxStyleFactory::instance().textColor(Role::SecondaryText, Role::Panel).name();
    const QString name = decoration.text(key, false).remove(QLatin1Char('&'));
    return QLatin1String("\n#### ") % name % QLatin1String("\n\n") % decoration.toolTip(key)
        % QLatin1String(". ") % decoration.description(key) % QLatin1Char('\n')
        % QLatin1String("\n<span style=\"font-size: small; color: ") % grey % QLatin1String("\">")
        % QLatin1String(key) % QLatin1String("</span>\n");
}

QString toolChapter(const std::vector<std::string> &keys, const WorkstationDecoration &decoration)
{
    QString text = QLatin1String("\n## ") % HelpWindow::tr("All tools") % QLatin1Char('\n');
    QString category;
    for (const std::string &key : keys) {
        if (decoration.category(key.c_str()) != category) {
            category = decoration.category(key.c_str());
            text += QLatin1String("\n### ") % category % QLatin1Char('\n');
        }
        text += toolText(key.c_str(), decoration);
    }
    return text;
}

void setAnchor(const QTextBlock &block, const QString &name)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorNames({name});
    QTextCursor cursor(block);
    cursor.select(QTextCursor::BlockUnderCursor);
    cursor.mergeCharFormat(format);
}

void setAnchors(const QTextDocument &document, const std::vector<std::string> &keys)
{
    std::size_t tool = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level == toolLevel && tool < keys.size()) {
            setAnchor(block, toolAnchor(QString::fromStdString(keys[tool++])));
        } else if (level > 0) {
            setAnchor(block, anchorOf(block.text()));
        }
    }
}

bool isManual(const QUrl &page)
{
    return page.adjusted(QUrl::RemoveFragment) == manualUrl();
}

/// Shows the pages of the help, follows the links between them, and adds the tools to the manual.
class HelpBrowser final : public QTextBrowser
{
public:
    HelpBrowser()
    {
        setOpenExternalLinks(true);
        connect(this, &QTextBrowser::sourceChanged, this, &HelpBrowser::anchorPage);
    }

    QVariant loadResource(int type, const QUrl &name) override
    {
        if (type != QTextDocument::MarkdownResource) {
            return QTextBrowser::loadResource(type, name);
        }
        return isManual(name) ? contents(name) % toolChapter(m_keys, m_decoration) : contents(name);
    }

private:
    /// Markdown has no anchors of its own, so the place that a link names is found only now.
    void anchorPage(const QUrl &page)
    {
        setAnchors(*document(), isManual(page) ? m_keys : std::vector<std::string>());
        if (page.hasFragment()) {
            scrollToAnchor(page.fragment());
        }
    }

    WorkstationDecoration m_decoration;
    std::vector<std::string> m_keys = toolKeys(m_decoration);
};

} // namespace

HelpWindow::HelpWindow(QWidget *parent)
    : QDialog(parent)
    , m_text(new HelpBrowser)
{
    constexpr QSize size(760, 640);
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(tr("Help"));
    m_text->setAccessibleName(tr("Help"));
    m_text->setSource(manualUrl());
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *const back = buttons->addButton(tr("&Back"), QDialogButtonBox::ActionRole);
    back->setToolTip(tr("Shows the page that was read before"));
    back->setObjectName(QStringLiteral("Back"));
    back->setEnabled(false);
    connect(back, &QPushButton::clicked, m_text, &QTextBrowser::backward);
    connect(m_text, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Close)->setIcon({});
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addWidget(buttons);
    resize(size);
}

QString HelpWindow::location()
{
    return QStringLiteral(":/movara/help/");
}

QString HelpWindow::reference(const QString &topic)
{
    const QString key = topic.section(QLatin1Char('.'), 1);
    const QString anchor
        = topic.startsWith(QLatin1String("Tool.")) ? toolAnchor(key) : anchorOf(topic);
    return fileName().section(QLatin1Char('/'), -1) % QLatin1Char('#') % anchor;
}

void HelpWindow::showTopic(const QString &topic)
{
    if (!isManual(m_text->source())) {
        m_text->setSource(manualUrl());
    }
    m_text->verticalScrollBar()->setValue(0);
    m_text->scrollToAnchor(reference(topic).section(QLatin1Char('#'), 1));
}
