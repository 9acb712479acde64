#include "hosts/activex/win32/WinTexts.h"

#include "hosts/activex/win32/ThisModule.h"
#include "hosts/activex/win32/WinText.h"

#include <TranslatedTexts.h>

#include <algorithm>
#include <iterator>

namespace velmora {
namespace {

constexpr std::size_t kStringsOfBlock = 16;

LANGID LanguageOf(LCID locale) {
    return MAKELANGID(PRIMARYLANGID(LANGIDFROMLCID(ConvertDefaultLocale(locale))), SUBLANG_NEUTRAL);
}

/// The block of the language's string table with that string: sixteen of them, each with its length
/// in front. Null if there is none.
const WCHAR* BlockOf(std::size_t id, LANGID language) {
    const HRSRC block =
        FindResourceExW(ThisModule(), RT_STRING,
                        MAKEINTRESOURCEW(static_cast<WORD>(id / kStringsOfBlock + 1)), language);
    const HGLOBAL loaded = block ? LoadResource(ThisModule(), block) : nullptr;
    return loaded ? static_cast<const WCHAR*>(LockResource(loaded)) : nullptr;
}

}  // namespace

std::wstring Localized(std::string_view text, LCID locale) {
    const auto* const known = std::ranges::find(kTranslatedTexts, text);
    if (known != std::end(kTranslatedTexts)) {
        const auto id = static_cast<std::size_t>(known - kTranslatedTexts);
        if (const WCHAR* string = BlockOf(id, LanguageOf(locale))) {
            for (std::size_t i = id % kStringsOfBlock; i > 0; --i) string += *string + 1;
            if (*string != 0) return {string + 1, *string};
        }
    }
    return ToWide(text);
}

std::string ForReaders(std::string_view text) {
    return ToUtf8(Localized(text, LOCALE_USER_DEFAULT));
}

bool IsRightToLeft(LCID locale) {
    const LANGID language = LanguageOf(locale);
    return PRIMARYLANGID(language) == LANG_ARABIC && BlockOf(0, language);
}

}  // namespace velmora
