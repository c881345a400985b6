// The byte stream of messages: the first bytes say what is read, the rest is read.
#include "platform/render/KxMsg.h"
#include "tests/fuzz/FuzzInput.h"

#include <algorithm>

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::size_t reads = std::min<std::size_t>(size, 16);
    KxMsg message(bytesOf(data + reads, size - reads));
    for (std::size_t i = 0; i < reads; ++i) {
        const bool wasGood = message.isGood();
        std::int32_t number = 1;
        bool flag = true;
        float real = 1;
        std::string text = "unread";
        switch (data[i] % 4) {
        case 0:
            message >> number;
            break;
        case 1:
            message >> flag;
            break;
        case 2:
            message >> real;
            break;
        default:
            message >> text;
            require(message.isGood() || text.empty());
            require(text.size() <= size || !message.isGood());
        }
        require(wasGood || !message.isGood());
    }
    return 0;
}
