#pragma once

#include <QString>

/// Makes passwords of eight characters that cannot be mistaken for one another: letter, letter,
/// letter, digit, digit, letter, letter, letter. The setting "Hidden.PasswordGenerator" says where
/// the randomness comes from: "Time" (the default) seeds the standard generator with the time in
/// seconds, so that two passwords of one second are the same and anybody who knows the second knows
/// the password; "System" takes the system's entropy. Sites whose passwords protect anything should
/// choose "System".
QString generatedPassword();
