#pragma once

#include <QStringList>

class MainWindow;

/// Opens what the workstation was started with: these paths or, without any, a sample study, which
/// is made in the user's cache folder when it is not there yet.
void startStudy(MainWindow &window, const QStringList &paths);
