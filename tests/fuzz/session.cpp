// Sessions: the file as a whole, and, past its check sum, the blocks that the workstation reads.
#include "client/session/SessionFile.h"
#include "client/session/SessionState.h"
#include "tests/fuzz/FuzzInput.h"

namespace {

/// What can be read is written so that it reads the same.
template <typename Block>
void readAndWrite(const QByteArray &bytes)
{
    if (const std::optional<Block> block = Block::fromBytes(bytes)) {
        const QByteArray written = block->toBytes();
        const std::optional<Block> again = Block::fromBytes(written);
        require(again && again->toBytes() == written);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    ExSessionData session;
    if (SessionFile::fromBytes(bytes, session).isEmpty()) {
        ExSessionData again;
        require(SessionFile::fromBytes(SessionFile::toBytes(session), again).isEmpty());
        require(again == session);
    }
    readAndWrite<SessionState::Studies>(bytes);
    readAndWrite<SessionState::Viewers>(bytes);
    readAndWrite<SessionState::Links>(bytes);
    readAndWrite<SessionState::Measurements>(bytes);
    return 0;
}
