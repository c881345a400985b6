#pragma once

/// Scans a folder once and prints the greatest memory that the process has taken, in kB; for a
/// process that does nothing else.
/// @param reader "ours", "vtk", or "none" for what a process takes that scans nothing.
/// @return the exit code.
int scanOnce(const char *reader, const char *folder);
