#pragma once

#include <QString>

/// Whether the toolkit can open windows here; asked before the application object is made, which
/// would end the process. @return what to tell the user and how to go on, empty when it can.
QString displayProblem(int argc, const char *const *argv);
