#include "files/Uuid.h"

#include <sys/random.h>
#include <unistd.h>

#include <random>

namespace zolva {

Uuid freshUuid()
{
    // Asked of the system each time: a pool kept here would give a forked child the same ids.
    Uuid id;
    if (::getentropy(id.bytes.data(), id.bytes.size()) != 0) {
        std::random_device device;
        for (std::uint8_t& byte : id.bytes) {
            byte = static_cast<std::uint8_t>(device() & 0xFFU);
        }
    }
    id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0FU) | 0x40U); // version 4
    id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3FU) | 0x80U); // RFC 4122's variant
    return id;
}

} // namespace zolva
