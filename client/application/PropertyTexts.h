#pragma once

/// Gives settings, and the groups that they are listed in, their names for the user.
void registerPropertyTexts();
