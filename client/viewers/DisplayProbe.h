#pragma once

/// Whether there is an X display that answers. Asked before VTK's windows are made, since VTK ends
/// the process when there is none; asked once, then remembered. Any thread.
bool hasXDisplay();
