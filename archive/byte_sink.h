#pragma once

#include <cstddef>
#include <cstdint>

namespace archive {

// Takes a block's output, piece by piece. The result is how many bytes were accepted,
// from the front; what is left comes again at the front of a later piece. Accepting
// nothing stops the pump. The bytes may be changed in place.
class ByteSink {
public:
    virtual size_t write(uint8_t* data, size_t length) = 0;

protected:
    ~ByteSink() = default;
};

} // namespace archive
