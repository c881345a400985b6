#include "tests/support/FakeViewer.h"

FakeViewer::FakeViewer(const QString &name, QStringList *log)
    : m_name(name)
    , m_log(log)
{ }

FakeViewer::~FakeViewer()
{
    note("gone");
    delete m_widget;
}

QWidget &FakeViewer::makeWidget()
{
    m_widget = new FakeRenderWidget(this);
    return *m_widget;
}

KxImageSeries *FakeViewer::imageSet(int index) const
{
    return imageSets.at(static_cast<std::size_t>(index));
}

KxVolume *FakeViewer::volume(int index) const
{
    return index == 0 ? shown.get() : nullptr;
}

KxVolume *FakeViewer::sourceVolume(int index) const
{
    return index == 0 && source ? source.get() : ExBaseViewer::sourceVolume(index);
}

KxSlice *FakeViewer::slice(bool /*preview*/) const
{
    return plane ? const_cast<KxSlice *>(&*plane) : nullptr;
}

void FakeViewer::note(const char *hook)
{
    if (m_log != nullptr) {
        m_log->append(m_name + u' ' + QLatin1String(hook));
    }
    if (onHook) {
        onHook();
    }
}
