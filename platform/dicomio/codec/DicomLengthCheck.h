#pragma once

#include "platform/util/McFilename.h"

#include <string>

/// Looks through the header of @p file, sequences too, for lengths that cannot be. The parser makes
/// room for values in those of undefined length before it knows whether the file holds them.
/// Any thread.
/// @return why the header must not be parsed: a value is longer than what is left of the file,
/// sequences are nested deeper than any device writes, or the encoding is none that exists. Empty
/// when nothing of this is so.
std::string impossibleLengthIn(const McFilename &file);
