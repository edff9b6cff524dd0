#pragma once

#include <cstddef>
#include <type_traits>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// The searches that reading markup consists of, over bytes and over 16-bit characters: a
// register full at a time where the processor has such, and never beyond the end.

namespace UILib::scan {

#ifdef __SSE2__

template <class Unit>
class Block {
public:
    static constexpr int Count = sizeof(__m128i) / sizeof(Unit);
    static constexpr unsigned All = 0xFFFF; // bits() when every unit is set

    explicit Block(const Unit* at) : value(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at))) {}

    Block operator==(unsigned c) const {
        return Block(narrow ? _mm_cmpeq_epi8(value, all(c)) : _mm_cmpeq_epi16(value, all(c)));
    }
    Block operator|(Block other) const { return Block(_mm_or_si128(value, other.value)); }
    // Units from first to first + size. The processor compares signed numbers only, so the
    // range is moved to where they begin.
    Block within(unsigned first, unsigned size) const {
        constexpr unsigned half = narrow ? 0x80 : 0x8000;
        const __m128i from =
            narrow ? _mm_sub_epi8(value, all(first + half)) : _mm_sub_epi16(value, all(first + half));
        const __m128i behind = all(size + 1 + half);
        return Block(narrow ? _mm_cmpgt_epi8(behind, from) : _mm_cmpgt_epi16(behind, from));
    }
    Block operator!() const { return *this == 0; } // of a comparison
    Block lowered() const { return Block(_mm_or_si128(value, all(0x20))); }
    unsigned bits() const { return static_cast<unsigned>(_mm_movemask_epi8(value)); }

private:
    static constexpr bool narrow = sizeof(Unit) == 1;
    explicit Block(__m128i value) : value(value) {}
    static __m128i all(unsigned c) {
        return narrow ? _mm_set1_epi8(static_cast<char>(c)) : _mm_set1_epi16(static_cast<short>(c));
    }
    __m128i value;
};

template <class Unit>
constexpr bool hasBlocks = sizeof(Unit) <= 2;

#else

template <class Unit>
constexpr bool hasBlocks = false;

#endif

// One unit with the operations of a block, for what does not fill one.
class Single {
public:
    template <class Unit>
    explicit Single(Unit unit) : value(static_cast<std::make_unsigned_t<Unit>>(unit)) {}
    explicit Single(bool set) : value(set) {}
    Single operator==(unsigned c) const { return Single(value == c); }
    Single operator|(Single other) const { return Single((value | other.value) != 0); }
    Single within(unsigned first, unsigned size) const { return Single(value - first <= size); }
    Single operator!() const { return Single(value == 0); }
    Single lowered() const { return Single(value | 0x20); }
    explicit operator bool() const { return value != 0; }

private:
    unsigned value;
};

// The first unit for which goesOn does not hold, or the end.
template <class Unit, class GoesOn>
const Unit* skip(const Unit* at, const Unit* end, GoesOn goesOn) {
#ifdef __SSE2__
    if constexpr (hasBlocks<Unit>)
        for (; end - at >= Block<Unit>::Count; at += Block<Unit>::Count)
            if (const unsigned stops = goesOn(Block<Unit>(at)).bits() ^ Block<Unit>::All)
                return at + __builtin_ctz(stops) / static_cast<int>(sizeof(Unit));
#endif
    while (at < end && goesOn(Single(*at)))
        ++at;
    return at;
}

// The first unit for which stops holds, or the end.
template <class Unit, class Stops>
const Unit* find(const Unit* at, const Unit* end, Stops stops) {
#ifdef __SSE2__
    if constexpr (hasBlocks<Unit>)
        for (; end - at >= Block<Unit>::Count; at += Block<Unit>::Count)
            if (const unsigned hits = stops(Block<Unit>(at)).bits())
                return at + __builtin_ctz(hits) / static_cast<int>(sizeof(Unit));
#endif
    while (at < end && !stops(Single(*at)))
        ++at;
    return at;
}

// Units that copyAscii may write behind what it copies.
constexpr int CopySlack = 16;

// Copies units of ASCII up to the first for which stops holds, and moves both positions
// behind them.
template <class Unit, class Stops>
[[gnu::always_inline]] inline void copyAscii(const Unit*& from, const Unit* end, wchar_t*& to, Stops stops) {
#ifdef __SSE2__
    if constexpr (sizeof(Unit) == 1 && sizeof(wchar_t) == 2) {
        const __m128i zero = _mm_setzero_si128();
        for (; end - from >= 16; from += 16, to += 16) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_unpacklo_epi8(bytes, zero));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(to + 8), _mm_unpackhi_epi8(bytes, zero));
            const Block<Unit> block(from);
            // What is not ASCII has the bit set that bits() takes.
            if (const unsigned hits = (stops(block) | block).bits()) {
                from += __builtin_ctz(hits);
                to += __builtin_ctz(hits);
                return;
            }
        }
    }
#endif
    for (; from < end && !stops(Single(*from)) && static_cast<std::make_unsigned_t<Unit>>(*from) < 0x80;
         ++from)
        *to++ = static_cast<wchar_t>(*from);
}

constexpr auto isBlank = [](auto units) { return units.within(1, 31); };

// One blank is the usual case, and none the next.
template <class Unit>
[[gnu::always_inline]] inline const Unit* skipBlanks(const Unit* at, const Unit* end) {
    if (at == end || !isBlank(Single(*at)))
        return at;
    ++at;
    return at == end || !isBlank(Single(*at)) ? at : skip(at, end, isBlank);
}

// Behind letters, digits, '_' and ':' of ASCII.
constexpr auto endsIdentifier = [](auto units) {
    return !(units.within('0', 10) | units.lowered().within('a', 25) | (units == '_'));
};

// What a value does not hold as it stands.
constexpr auto endsPlainValue = [](auto units) { return (units == '"') | (units == '&'); };

template <class Unit>
const Unit* findTag(const Unit* at, const Unit* end) {
    return find(at, end, [](auto units) { return units == '<'; });
}

// Runs over whole documents: four registers at a time.
template <class Unit>
const Unit* findZero(const Unit* at, const Unit* end) {
#ifdef __SSE2__
    if constexpr (hasBlocks<Unit>)
        for (constexpr int Four = 4 * Block<Unit>::Count; end - at >= Four; at += Four) {
            const auto block = [at](int i) { return Block<Unit>(at + i * Block<Unit>::Count) == 0; };
            if ((block(0) | block(1) | block(2) | block(3)).bits())
                break;
        }
#endif
    return find(at, end, [](auto units) { return units == 0; });
}

} // namespace UILib::scan
