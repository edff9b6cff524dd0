#pragma once

#include <string_view>
#include <vector>

// Where a text may be divided between two lines. Words of scripts with blanks divide at
// blanks alone; Chinese, Japanese and Korean text between letters, but not before closing
// nor behind opening marks; Thai, for want of a dictionary, before any letter that can
// begin a syllable. Pure; any thread.

namespace engine {

// A piece of text that stays in one line.
struct Segment {
    std::u16string_view text; // without blanks; part of the text that was given
    bool spaceBefore = false; // a blank parts it from what stands before
    bool breakBefore = false; // a line may end before it
};

// White space is collapsed. trailingSpace tells whether the text ends in a blank.
std::vector<Segment> splitText(std::u16string_view text, bool& trailingSpace);

} // namespace engine
