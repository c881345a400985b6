#pragma once

#include <filesystem>

/// Name of a file or folder in the file system's own encoding.
using McFilename = std::filesystem::path;
