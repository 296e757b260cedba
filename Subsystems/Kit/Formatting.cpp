// SPDX-License-Identifier: MIT
#include "Formatting.h"

#include "Subsystems/Kit/GString.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cwchar>

namespace kit {

// The analyzer does not see that a list within a structure is set by va_copy.
// NOLINTBEGIN(clang-analyzer-valist.Uninitialized)

namespace {

// A va_list may be an array type, which decays when it is passed on; wrapped in a struct it is
// passed by reference on every platform.
struct Arguments {
    std::va_list list;
};

struct Directive {
    std::wstring flags; // flags, width and precision with every * already replaced
    std::wstring length;
    wchar_t conversion = L'\0';
    std::size_t width = 0;
    std::size_t precision = std::wstring::npos;
    bool leftAligned = false;
};

std::size_t TakeNumber(const wchar_t*& p, Arguments& arguments, bool& negative) {
    negative = false;
    if (*p == L'*') {
        ++p;
        const int value = va_arg(arguments.list, int);
        negative = value < 0;
        return negative ? std::size_t{0} - static_cast<std::size_t>(value)
                        : static_cast<std::size_t>(value);
    }
    std::size_t value = 0;
    while (*p >= L'0' && *p <= L'9') {
        value = std::min<std::size_t>(value * 10 + static_cast<std::size_t>(*p++ - L'0'), 100000);
    }
    return value;
}

// The modifiers I64, I32 and I come back as the standard ones of the same size.
std::wstring TakeLength(const wchar_t*& p) {
    if (*p == L'I') {
        const bool is64 = p[1] == L'6' && p[2] == L'4';
        const bool is32 = p[1] == L'3' && p[2] == L'2';
        p += is64 || is32 ? 3 : 1;
        return is64 ? L"ll" : is32 ? L"" : L"z";
    }
    std::wstring length;
    while (*p != L'\0' && std::wcschr(L"hlLjzt", *p) != nullptr) {
        length += *p++;
    }
    return length;
}

// p stands behind the percent sign and ends behind the conversion character.
Directive TakeDirective(const wchar_t*& p, Arguments& arguments) {
    Directive d;
    bool negative = false;
    for (; *p != L'\0' && std::wcschr(L"-+ #0", *p) != nullptr; ++p) {
        d.leftAligned = d.leftAligned || *p == L'-';
        d.flags += *p;
    }
    d.width = TakeNumber(p, arguments, negative);
    if (negative) {
        d.leftAligned = true;
        d.flags += L'-';
    }
    if (d.width > 0) {
        d.flags += std::to_wstring(d.width);
    }
    if (*p == L'.') {
        ++p;
        const std::size_t value = TakeNumber(p, arguments, negative);
        if (!negative) {
            d.precision = value;
            d.flags += L'.' + std::to_wstring(value);
        }
    }
    d.length = TakeLength(p);
    if (*p != L'\0') {
        d.conversion = *p++;
    }
    return d;
}

template <typename Value>
std::wstring FormatNumber(const Directive& d, Value value) {
    const std::wstring format = L'%' + d.flags + d.length + d.conversion;
    std::wstring text(64 + d.width + (d.precision == std::wstring::npos ? 0 : d.precision), L'\0');
    for (;;) {
        const int written = std::swprintf(text.data(), text.size(), format.c_str(), value);
        if (written >= 0) {
            text.resize(static_cast<std::size_t>(written));
            return text;
        }
        if (text.size() > 1000000) {
            return {};
        }
        text.resize(text.size() * 2);
    }
}

std::wstring Pad(const Directive& d, std::wstring text) {
    text.resize(std::min(text.size(), d.precision));
    if (text.size() < d.width) {
        text.insert(d.leftAligned ? text.size() : 0, d.width - text.size(), L' ');
    }
    return text;
}

// A text argument need not be terminated within its precision, so it is cut before it is
// converted.
template <typename Character>
std::basic_string<Character> TakeText(const Character* text, std::size_t precision) {
    std::basic_string<Character> taken;
    while (text != nullptr && taken.size() < precision && text[taken.size()] != Character{}) {
        taken += text[taken.size()];
    }
    return taken;
}

std::wstring FormatText(const Directive& d, Arguments& arguments) {
    const bool narrow = d.length == L"h" || (d.length.empty() && d.conversion == L'S');
    if (narrow) {
        const std::string text = TakeText(va_arg(arguments.list, const char*), d.precision);
        return Pad(d, GString(text.c_str()).c_str());
    }
    return Pad(d, TakeText(va_arg(arguments.list, const wchar_t*), d.precision));
}

std::wstring FormatInteger(const Directive& d, Arguments& arguments) {
    if (d.length == L"l") {
        return FormatNumber(d, va_arg(arguments.list, long));
    }
    if (d.length == L"ll") {
        return FormatNumber(d, va_arg(arguments.list, long long));
    }
    if (d.length == L"j") {
        return FormatNumber(d, va_arg(arguments.list, std::intmax_t));
    }
    if (d.length == L"z") {
        return FormatNumber(d, va_arg(arguments.list, std::size_t));
    }
    if (d.length == L"t") {
        return FormatNumber(d, va_arg(arguments.list, std::ptrdiff_t));
    }
    return FormatNumber(d, va_arg(arguments.list, int));
}

std::wstring FormatDirective(const Directive& d, Arguments& arguments) {
    switch (d.conversion) {
    case L'%': return L"%";
    case L's':
    case L'S': return FormatText(d, arguments);
    case L'd':
    case L'i':
    case L'u':
    case L'o':
    case L'x':
    case L'X': return FormatInteger(d, arguments);
    case L'c': return Pad(d, std::wstring(1, static_cast<wchar_t>(va_arg(arguments.list, int))));
    case L'p': return FormatNumber(d, va_arg(arguments.list, void*));
    case L'e':
    case L'E':
    case L'f':
    case L'F':
    case L'g':
    case L'G':
    case L'a':
    case L'A':
        return d.length == L"L" ? FormatNumber(d, va_arg(arguments.list, long double))
                                : FormatNumber(d, va_arg(arguments.list, double));
    default: return {};
    }
}

} // namespace

// NOLINTEND(clang-analyzer-valist.Uninitialized)

std::wstring FormatWide(const wchar_t* format, std::va_list list) {
    Arguments arguments;
    va_copy(arguments.list, list);
    std::wstring out;
    const wchar_t* p = format != nullptr ? format : L"";
    while (*p != L'\0') {
        if (*p != L'%') {
            out += *p++;
            continue;
        }
        ++p;
        const Directive directive = TakeDirective(p, arguments);
        out += FormatDirective(directive, arguments);
    }
    va_end(arguments.list);
    return out;
}

} // namespace kit
