#pragma once

#include <string>

/// Byte string of the utility library; UTF-8 where it holds text.
using McString = std::string;
