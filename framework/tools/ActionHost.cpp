#include "framework/tools/ActionHost.h"

#include <QCoreApplication>
#include <QWidget>

#include <utility>

namespace {

QWidget *host = nullptr;
bool hasEnded = false;

void destroyHost()
{
    hasEnded = true;
    delete std::exchange(host, nullptr);
}

} // namespace

QWidget *actionHost()
{
    if (host == nullptr && !hasEnded) {
        // As a stand-in for the desktop it is no window that was left open.
        host = new QWidget(nullptr, Qt::Desktop);
        host->setObjectName(QStringLiteral("ActionHost"));
        host->setAttribute(Qt::WA_QuitOnClose, false);
        qAddPostRoutine(&destroyHost);
    }
    return host;
}
