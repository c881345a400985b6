#pragma once

#include <string>
#include <vector>

/// "1, 2, 3 and 4 more": the texts in a row, no more than eight of them.
std::string joinedText(const std::vector<std::string> &texts);
