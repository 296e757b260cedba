// SPDX-License-Identifier: MIT
// A double below 2^52 is an integer of at most 53 bits, divided by a power of two: m / 2^k. Its
// whole part is m >> k; of the rest, r / 2^k, the decimal digits are wanted as an integer:
//
//     r 10^15 / 2^k,  rounded.      r < 2^53 and 10^15 < 2^50: the product has at most 103 bits.
//
// So one product of two words gives all the digits exactly, and the bits that are shifted out say
// how to round. Other numbers, which hardly occur as coordinates, are left to the library.
#include "geometry/engine/FixedPoint.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace geom::detail {

namespace {

constexpr std::uint64_t TEN_TO_THE_15 = 1'000'000'000'000'000;
constexpr int PRODUCT_BITS = 103;
constexpr int WORD = 64;

struct TwoWords {
    std::uint64_t high;
    std::uint64_t low;
};

// The schoolbook product with digits of 32 bits; a has at most 53 bits and b at most 50, so the
// sum in the middle cannot overflow.
TwoWords Product(std::uint64_t a, std::uint64_t b) {
    constexpr std::uint64_t DIGIT = 0xFFFFFFFFU;
    const std::uint64_t low = (a & DIGIT) * (b & DIGIT);
    const std::uint64_t middle = (a >> 32) * (b & DIGIT) + (a & DIGIT) * (b >> 32) + (low >> 32);
    return {(a >> 32) * (b >> 32) + (middle >> 32), (middle << 32) | (low & DIGIT)};
}

// The number divided by 2^shift, for 0 < shift <= PRODUCT_BITS, to nearest and half way to even.
std::uint64_t ShiftRounded(const TwoWords& number, int shift) {
    std::uint64_t quotient = 0;
    std::uint64_t rest = 0; // what is shifted out, as a fraction of 2^64
    bool restGoesOn = false;
    if (shift < WORD) {
        quotient = (number.high << (WORD - shift)) | (number.low >> shift);
        rest = number.low << (WORD - shift);
    } else if (shift == WORD) {
        quotient = number.high;
        rest = number.low;
    } else {
        quotient = number.high >> (shift - WORD);
        rest = (number.high << (2 * WORD - shift)) | (number.low >> (shift - WORD));
        restGoesOn = (number.low << (2 * WORD - shift)) != 0;
    }
    constexpr std::uint64_t HALF = std::uint64_t{1} << (WORD - 1);
    const bool up = rest > HALF || (rest == HALF && (restGoesOn || (quotient & 1) != 0));
    return quotient + (up ? 1 : 0);
}

// The 15 digits of a number below 10^15, two at a time from the last; the first by itself.
char* WriteFraction(char* text, std::uint64_t digits) {
    static constexpr char PAIRS[] = "00010203040506070809101112131415161718192021222324"
                                    "25262728293031323334353637383940414243444546474849"
                                    "50515253545556575859606162636465666768697071727374"
                                    "75767778798081828384858687888990919293949596979899";
    for (int i = DIGITS_AFTER_POINT - 2; i > 0; i -= 2) {
        std::memcpy(text + i, PAIRS + 2 * (digits % 100), 2);
        digits /= 100;
    }
    *text = static_cast<char>('0' + digits);
    return text + DIGITS_AFTER_POINT;
}

// The number m / 2^k, exactly.
struct BinaryFraction {
    std::uint64_t m;
    int k;
};

// Of a number that is not negative. The fields of the format: a subnormal number has no hidden
// bit, and the exponent of the smallest normal ones.
BinaryFraction FractionOf(double value) {
    constexpr int FRACTION_BITS = 52;
    constexpr int BIAS = 1023;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    const int exponent = static_cast<int>(bits >> FRACTION_BITS);
    const std::uint64_t hidden = std::uint64_t{exponent == 0 ? 0U : 1U} << FRACTION_BITS;
    return {(bits & ((std::uint64_t{1} << FRACTION_BITS) - 1)) | hidden,
            BIAS + FRACTION_BITS - std::max(exponent, 1)};
}

// A number that is not negative and below 2^52, so that k is at least 1.
char* WriteUnsigned(char* text, char* limit, double value) {
    const auto [m, k] = FractionOf(value);
    std::uint64_t whole = k < WORD ? m >> k : 0;
    const std::uint64_t rest = k < WORD ? m - (whole << k) : m;
    // Beyond, the product is less than half of 2^k.
    std::uint64_t digits = k <= PRODUCT_BITS ? ShiftRounded(Product(rest, TEN_TO_THE_15), k) : 0;
    if (digits == TEN_TO_THE_15) {
        ++whole;
        digits = 0;
    }
    text = std::to_chars(text, limit, whole).ptr;
    *text++ = '.';
    return WriteFraction(text, digits);
}

} // namespace

char* WriteFixed(char* text, double value) {
    char* const limit = text + LONGEST_COORDINATE;
    *text++ = std::signbit(value) ? '-' : ' ';
    const double magnitude = std::fabs(value);
    if (magnitude < 0x1p52) {
        return WriteUnsigned(text, limit, magnitude);
    }
    return std::to_chars(text, limit, magnitude, std::chars_format::fixed, DIGITS_AFTER_POINT).ptr;
}

} // namespace geom::detail
