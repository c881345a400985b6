#pragma once

#include "platform/util/McFilename.h"

#include <string>

/// Looks through the values of undefined length in the header of @p file, for which the parser
/// makes room before it knows whether the file holds them. Any thread.
/// @return why the header must not be parsed: a value in them is longer than what is left of the
/// file, or they are nested deeper than any device writes. Empty when neither is so.
std::string impossibleLengthIn(const McFilename &file);
