#include "hosts/activex/win32/WinText.h"

#include <windows.h>

#include <algorithm>

namespace velmora {

std::wstring ToWide(std::string_view text) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::ranges::all_of(text, isAscii)) return {text.begin(), text.end()};
    const int length = static_cast<int>(text.size());
    const int wideLength = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(wideLength), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), wideLength);
    return wide;
}

std::string ToUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int narrowLength =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(narrowLength), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), narrowLength, nullptr,
                        nullptr);
    return narrow;
}

}  // namespace velmora
