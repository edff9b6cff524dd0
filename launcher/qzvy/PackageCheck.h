#pragma once

#include "archive/extract.h"

// What the result of an extraction says about the package itself: its bytes are damaged,
// or are no package at all (an error page that a server sent in its place). Trouble with
// the disk, the memory or the user's stop says nothing about it.
constexpr bool isBrokenPackage(int result) {
    switch (result) {
    case archive::DataError:
    case archive::Unsupported:
    case archive::CrcError:
    case archive::InputEnd:
    case archive::Inconsistent:
    case archive::BadArchive:
    case archive::NoArchive:
        return true;
    }
    return false;
}
