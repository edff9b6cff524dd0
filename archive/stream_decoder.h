#pragma once

#include <7z.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace archive {

// A main coder that turns a stream of packed bytes into a stream of unpacked ones, with
// as much state as its dictionary needs and no more.
class StreamDecoder {
public:
    struct Step {
        size_t consumed = 0;
        size_t produced = 0;
        bool endMark = false;       // the stream says that it ends here
        bool maybeFinished = false; // it may end here, if the sizes say so as well
    };

    virtual ~StreamDecoder() = default;

    // Decodes into room bytes of output; last tells that these are the rest of the
    // stream. A step without progress is no error here.
    virtual SRes decode(uint8_t* output, size_t room, bool last, const uint8_t* input, size_t size,
                        Step& step) = 0;

    static constexpr UInt32 copyMethod = 0;
    static bool isSupported(UInt32 method);

    // The method must be supported. Null comes with a status that says why.
    static std::unique_ptr<StreamDecoder> make(const CSzCoderInfo& coder, const Byte* properties,
                                               ISzAllocPtr memory, SRes& status);
};

} // namespace archive
