#pragma once

#include <thread>

/// Reads the machine's list of fonts in a thread of its own while the program starts. Without it
/// the first text would wait for that; it is what takes longest before the first window is seen.
class FontPreload
{
public:
    FontPreload();

private:
    std::jthread m_reader;
};
