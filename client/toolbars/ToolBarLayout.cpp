#include "client/toolbars/ToolBarLayout.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

#include <optional>
#include <set>
#include <utility>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ToolBarLayout)
};

using Item = ToolBarLayout::Item;
using Bar = ToolBarLayout::Bar;

constexpr int largestSpacer = 1000;

/// Reads element by element; the first mistake ends it.
class Reader
{
public:
    explicit Reader(const QByteArray &content)
        : m_xml(content)
    { }

    std::variant<ToolBarLayout, ToolBarLayout::Error> read()
    {
        ToolBarLayout layout;
        if (m_xml.readNextStartElement()) {
            expect(QLatin1String("ToolBars"));
            allowAttributes({});
            while (m_xml.readNextStartElement()) {
                layout.bars.push_back(readBar());
            }
        }
        while (!m_xml.atEnd()) {
            m_xml.readNext(); // Nothing may follow.
        }
        if (m_xml.hasError()) {
            return ToolBarLayout::Error{
                m_errorLine > 0 ? m_errorLine : m_xml.lineNumber(), m_xml.errorString()};
        }
        layout.toolLines = std::move(m_toolLines);
        return layout;
    }

private:
    Bar readBar()
    {
        expect(QLatin1String("ToolBar"));
        allowAttributes({QStringLiteral("Id"), QStringLiteral("Label")});
        Bar bar{attribute("Id"), attribute("Label"), {}};
        if (!m_barIds.insert(bar.id).second) {
            fail(Texts::tr("There are two tool bars with the Id \"%1\".").arg(bar.id));
        }
        while (m_xml.readNextStartElement()) {
            bar.items.push_back(readItem());
        }
        return bar;
    }

    Item readItem()
    {
        if (m_xml.name() == QLatin1String("Popup")) {
            return readPopup();
        }
        Item item;
        if (m_xml.name() == QLatin1String("Tool")) {
            item.kind = Item::Tool;
            item.id = readTool();
            return item;
        }
        if (m_xml.name() == QLatin1String("Spacer")) {
            item.kind = Item::Spacer;
            item.size = readSize();
        } else {
            expect(QLatin1String("Separator"));
            allowAttributes({});
        }
        endElement();
        return item;
    }

    Item readPopup()
    {
        allowAttributes({QStringLiteral("Id"), QStringLiteral("Label")});
        Item item;
        item.kind = Item::Popup;
        item.id = attribute("Id");
        item.label = attribute("Label");
        while (m_xml.readNextStartElement()) {
            expect(QLatin1String("Tool"));
            item.tools += readTool();
        }
        return item;
    }

    QString readTool()
    {
        allowAttributes({QStringLiteral("Id")});
        QString id = attribute("Id");
        m_toolLines.emplace(id, m_xml.lineNumber());
        endElement();
        return id;
    }

    int readSize()
    {
        allowAttributes({QStringLiteral("Size")});
        const QString text = attribute("Size");
        bool isNumber = false;
        const int size = text.toInt(&isNumber);
        if (!m_xml.hasError() && (!isNumber || size < 0 || size > largestSpacer)) {
            fail(Texts::tr("\"%1\" is no size of a spacer: give pixels, 0 to %2.")
                     .arg(text)
                     .arg(largestSpacer));
        }
        return size;
    }

    /// Of an element that holds nothing.
    void endElement()
    {
        if (m_xml.readNextStartElement()) {
            fail(Texts::tr("<%1> is not allowed here.").arg(m_xml.name()));
        }
    }

    void expect(QLatin1String name)
    {
        if (m_xml.name() != name) {
            fail(Texts::tr("<%1> is not allowed here.").arg(m_xml.name()));
        }
    }

    void allowAttributes(const QStringList &allowed)
    {
        for (const QXmlStreamAttribute &attribute : m_xml.attributes()) {
            if (!allowed.contains(attribute.name().toString())) {
                fail(
                    Texts::tr("<%1> has no attribute \"%2\".").arg(m_xml.name(), attribute.name()));
            }
        }
    }

    /// Must be there and not be empty.
    QString attribute(const char *name)
    {
        QString value = m_xml.attributes().value(QLatin1String(name)).toString();
        if (value.isEmpty()) {
            fail(Texts::tr("<%1> needs the attribute \"%2\".")
                     .arg(m_xml.name().toString(), QLatin1String(name)));
        }
        return value;
    }

    void fail(const QString &text)
    {
        if (!m_xml.hasError()) {
            m_errorLine = m_xml.lineNumber();
            m_xml.raiseError(text);
        }
    }

    QXmlStreamReader m_xml;
    qint64 m_errorLine = 0;
    std::set<QString> m_barIds;
    std::map<QString, qint64> m_toolLines;
};

} // namespace

std::variant<ToolBarLayout, ToolBarLayout::Error> ToolBarLayout::read(const QByteArray &content)
{
    return Reader(content).read();
}
