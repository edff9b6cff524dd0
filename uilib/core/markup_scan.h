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
    // Units from first to first + size.
    Block within(unsigned first, unsigned size) const {
        const __m128i from = narrow ? _mm_sub_epi8(value, all(first)) : _mm_sub_epi16(value, all(first));
        const __m128i beyond = narrow ? _mm_subs_epu8(from, all(size)) : _mm_subs_epu16(from, all(size));
        return Block(narrow ? _mm_cmpeq_epi8(beyond, _mm_setzero_si128())
                            : _mm_cmpeq_epi16(beyond, _mm_setzero_si128()));
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
    // Most runs are short, and many are empty.
    if (at == end || !goesOn(Single(*at)))
        return at;
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

// Copies units of ASCII for which goesOn holds, and moves both positions behind them.
template <class Unit, class GoesOn>
void copyAscii(const Unit*& from, const Unit* end, wchar_t*& to, GoesOn goesOn) {
#ifdef __SSE2__
    if constexpr (sizeof(Unit) == 1 && sizeof(wchar_t) == 2) {
        const __m128i zero = _mm_setzero_si128();
        while (end - from >= 16) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_unpacklo_epi8(bytes, zero));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(to + 8), _mm_unpackhi_epi8(bytes, zero));
            const unsigned stops = (goesOn(Block<Unit>(from)).bits() ^ Block<Unit>::All) |
                                   static_cast<unsigned>(_mm_movemask_epi8(bytes));
            const int count = stops ? __builtin_ctz(stops) : 16;
            from += count;
            to += count;
            if (stops)
                return;
        }
    }
#endif
    for (; from < end && goesOn(Single(*from)) && static_cast<std::make_unsigned_t<Unit>>(*from) < 0x80;
         ++from)
        *to++ = static_cast<wchar_t>(*from);
}

template <class Unit>
const Unit* skipBlanks(const Unit* at, const Unit* end) {
    return skip(at, end, [](auto units) { return units.within(1, 31); });
}

// Letters, digits, '_' and ':' of ASCII.
constexpr auto isIdentifier = [](auto units) {
    return units.within('0', 10) | units.lowered().within('a', 25) | (units == '_');
};

// What a value holds as it stands.
constexpr auto isPlainValue = [](auto units) { return !((units == '"') | (units == '&')); };

template <class Unit>
const Unit* findTag(const Unit* at, const Unit* end) {
    return find(at, end, [](auto units) { return units == '<'; });
}

template <class Unit>
const Unit* findZero(const Unit* at, const Unit* end) {
    return find(at, end, [](auto units) { return units == 0; });
}

} // namespace UILib::scan
