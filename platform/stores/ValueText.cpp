#include "platform/stores/ValueText.h"

#include "platform/Automation.h"
#include "platform/stores/Base64.h"
#include "platform/stores/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace velmora {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

constexpr std::array<std::string_view, 5> kPictureTypes{"none", "bitmap", "metafile", "icon",
                                                        "enhmetafile"};

struct FontStyle {
    std::string_view word;
    bool StdFont::*flag;
};
constexpr FontStyle kFontStyles[] = {{"bold", &StdFont::bold},
                                     {"italic", &StdFont::italic},
                                     {"underline", &StdFont::underline},
                                     {"strikethrough", &StdFont::strikethrough}};

/// A piece of the input for an error message.
std::string Cited(std::string_view text) {
    constexpr std::size_t kLongest = 40;
    return text.size() <= kLongest ? QuotedText(text)
                                   : QuotedText(text.substr(0, kLongest)) + "...";
}

std::string NumberText(std::int32_t number) { return std::to_string(number); }
using velmora::NumberText;

// Writing

std::string FontText(const StdFont& font) {
    std::string text = "font " + QuotedText(font.name) + ' ' + NumberText(font.size);
    for (const auto& [word, flag] : kFontStyles) {
        if (font.*flag) text.append(" ").append(word);
    }
    return text;
}

/// Red, green, blue, alpha, a byte each.
std::string PixelsText(const PixelImage& image) {
    if (image.pixels.size() > kMostStoredPixels) {
        throw ValueTextError("the picture has more than 64 MiB of pixels");
    }
    std::vector<std::uint8_t> bytes;
    bytes.reserve(image.pixels.size() * 4);
    for (const std::uint32_t pixel : image.pixels) {
        for (const int shift : {16, 8, 0, 24}) {
            bytes.push_back(static_cast<std::uint8_t>(pixel >> shift & 0xFF));
        }
    }
    return ToBase64(bytes);
}

std::string PictureText(const StdPicture& picture) {
    const auto type = static_cast<std::size_t>(picture.Type());
    if (type >= kPictureTypes.size()) RaiseTypeMismatch();
    std::string text = "picture " + std::string(kPictureTypes[type]) + ' ' +
                       NumberText(picture.Himetric().width) + ' ' +
                       NumberText(picture.Himetric().height);
    if (const auto& image = picture.Image(); image && image->IsDrawable()) {
        text += " pixels " + NumberText(image->width) + ' ' + NumberText(image->height) + ' ' +
                PixelsText(*image);
    }
    return text;
}

std::string ObjectText(const ObjectRef& object) {
    if (!object) return "nothing";
    if (const auto* font = dynamic_cast<const StdFont*>(object.get())) return FontText(*font);
    if (const auto* picture = dynamic_cast<const StdPicture*>(object.get())) {
        return PictureText(*picture);
    }
    RaiseTypeMismatch();
}

// Reading

char Unescaped(std::string_view& rest) {
    if (rest.empty()) throw ValueTextError("a text has no closing quote");
    const char letter = rest.front();
    rest.remove_prefix(1);
    switch (letter) {
        case '"':
        case '\\': return letter;
        case 'n': return '\n';
        case 'r': return '\r';
        case 't': return '\t';
        case 'x': break;
        default: throw ValueTextError("unknown escape " + Cited({&letter, 1}) + " in a text");
    }
    unsigned code = 0;
    const char* const end = rest.data() + std::min<std::size_t>(2, rest.size());
    const auto [stop, error] = std::from_chars(rest.data(), end, code, 16);
    if (error != std::errc() || stop != rest.data() + 2) {
        throw ValueTextError("\\x in a text needs two hexadecimal digits");
    }
    rest.remove_prefix(2);
    return static_cast<char>(code);
}

/// Bytes up to the closing quote, escapes as they are written.
std::size_t QuotedLength(std::string_view rest) {
    std::size_t end = rest.find_first_of("\"\\");
    while (end < rest.size() && rest[end] == '\\') end = rest.find_first_of("\"\\", end + 2);
    return std::min(end, rest.size());
}

/// The parts of a value from left to right, separated by spaces.
class PartReader {
public:
    explicit PartReader(std::string_view text) : m_rest(text) { SkipSpaces(); }

    bool AtEnd() const { return m_rest.empty(); }

    std::string_view Word(const char* what) {
        const std::string_view word = m_rest.substr(0, m_rest.find_first_of(" \t"));
        if (word.empty()) throw ValueTextError(std::string(what) + " is missing");
        m_rest.remove_prefix(word.size());
        SkipSpaces();
        return word;
    }

    template <class T>
    T Number(const char* what) {
        const std::string_view word = Word(what);
        T number{};
        const std::errc error = Parse(word, number);
        if (error == std::errc::result_out_of_range) {
            throw ValueTextError(std::string(what) + ' ' + Cited(word) + " is out of range");
        }
        if (error != std::errc()) {
            throw ValueTextError(std::string(what) + ' ' + Cited(word) + " is no number");
        }
        return number;
    }

    std::string Text() {
        std::string text = TakeQuotedText(m_rest);
        SkipSpaces();
        return text;
    }

private:
    template <class T>
    static std::errc Parse(std::string_view word, T& number) {
        const char* const end = word.data() + word.size();
        const auto [stop, error] = std::from_chars(word.data(), end, number);
        return error == std::errc() && stop != end ? std::errc::invalid_argument : error;
    }
    static std::errc Parse(std::string_view word, double& number) {
        return ParseNumber(word, number);
    }
    void SkipSpaces() {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(" \t"), m_rest.size()));
    }

    std::string_view m_rest;
};

Variant ReadBoolean(PartReader& parts) {
    const std::string_view word = parts.Word("the Boolean");
    if (word != "true" && word != "false") {
        throw ValueTextError("the Boolean " + Cited(word) + " is neither true nor false");
    }
    return word == "true";
}

Variant ReadFont(PartReader& parts) {
    auto font = std::make_shared<StdFont>();
    font->name = parts.Text();
    font->size = parts.Number<double>("the font size");
    while (!parts.AtEnd()) {
        const std::string_view word = parts.Word("the style");
        const auto* style = std::find_if(std::begin(kFontStyles), std::end(kFontStyles),
                                         [word](const FontStyle& s) { return s.word == word; });
        if (style == std::end(kFontStyles)) {
            throw ValueTextError("unknown font style " + Cited(word));
        }
        (*font).*(style->flag) = true;
    }
    return ObjectRef(std::move(font));
}

/// Piece by piece, as the bytes need not be in memory beside the pixels. False: no base64 text, or
/// not of `count` pixels.
bool ReadPixels(std::string_view text, std::size_t count, std::vector<std::uint32_t>& pixels) {
    constexpr std::size_t kPiece = 4096 * 16;  // characters, for whole pixels
    if (text.size() != Base64Length(count * 4)) return false;
    pixels.reserve(count);
    for (; !text.empty(); text.remove_prefix(std::min(kPiece, text.size()))) {
        const auto bytes = FromBase64(text.substr(0, kPiece));
        const std::size_t due = std::min(kPiece / 16 * 3, count - pixels.size());  // pixels
        if (!bytes || bytes->size() != due * 4) return false;
        for (std::size_t i = 0; i < bytes->size(); i += 4) {
            const auto byte = [&](std::size_t k) { return std::uint32_t{(*bytes)[i + k]}; };
            pixels.push_back(byte(3) << 24 | byte(0) << 16 | byte(1) << 8 | byte(2));
        }
    }
    return true;
}

/// The length of the text is checked against the size before anything is allocated.
std::shared_ptr<const PixelImage> ReadImage(PartReader& parts) {
    auto image = std::make_shared<PixelImage>();
    image->width = parts.Number<std::int32_t>("the width in pixels");
    image->height = parts.Number<std::int32_t>("the height in pixels");
    if (image->width <= 0 || image->height <= 0) throw ValueTextError("the picture has no area");
    const auto count =
        static_cast<std::uint64_t>(image->width) * static_cast<std::uint64_t>(image->height);
    if (count > kMostStoredPixels) {
        throw ValueTextError("the picture has more than 64 MiB of pixels");
    }
    const std::string_view text = parts.Word("the list of pixels");
    if (!ReadPixels(text, static_cast<std::size_t>(count), image->pixels)) {
        throw ValueTextError("the pixels do not fill the picture, or are no base64 text");
    }
    return image;
}

Variant ReadPicture(PartReader& parts) {
    const std::string_view name = parts.Word("the picture's type");
    const auto type = std::find(kPictureTypes.begin(), kPictureTypes.end(), name);
    if (type == kPictureTypes.end()) throw ValueTextError("unknown picture type " + Cited(name));
    Size himetric;
    himetric.width = parts.Number<std::int32_t>("the picture's width");
    himetric.height = parts.Number<std::int32_t>("the picture's height");
    std::shared_ptr<const PixelImage> image;
    if (!parts.AtEnd()) {
        const std::string_view word = parts.Word("pixels");
        if (word != "pixels") throw ValueTextError(Cited(word) + " stands where pixels may stand");
        image = ReadImage(parts);
    }
    return ObjectRef(std::make_shared<StdPicture>(
        static_cast<PictureType>(type - kPictureTypes.begin()), himetric, std::move(image)));
}

struct Reader {
    std::string_view type;
    Variant (*read)(PartReader&);
};
constexpr Reader kReaders[] = {
    {"empty", [](PartReader&) { return Variant(); }},
    {"null", [](PartReader&) { return Variant(Null{}); }},
    {"nothing", [](PartReader&) { return Variant(ObjectRef()); }},
    {"int16", [](PartReader& p) { return Variant(p.Number<std::int16_t>("the number")); }},
    {"int32", [](PartReader& p) { return Variant(p.Number<std::int32_t>("the number")); }},
    {"double", [](PartReader& p) { return Variant(p.Number<double>("the number")); }},
    {"date", [](PartReader& p) { return Variant(Date(p.Number<double>("the day number"))); }},
    {"text", [](PartReader& p) { return Variant(p.Text()); }},
    {"boolean", ReadBoolean},
    {"font", ReadFont},
    {"picture", ReadPicture},
};

}  // namespace

std::string QuotedText(std::string_view text) {
    std::string quoted = "\"";
    quoted.reserve(text.size() + 2);
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        switch (character) {
            case '"':
            case '\\': quoted += {'\\', character}; break;
            case '\n': quoted += "\\n"; break;
            case '\r': quoted += "\\r"; break;
            case '\t': quoted += "\\t"; break;
            default:
                if (code >= 0x20 && code != 0x7F) {
                    quoted += character;
                } else {
                    quoted += {'\\', 'x', kHexDigits[code >> 4], kHexDigits[code & 15]};
                }
        }
    }
    return quoted + '"';
}

std::string TakeQuotedText(std::string_view& rest) {
    if (rest.empty() || rest.front() != '"') throw ValueTextError("a text in quotes is missing");
    rest.remove_prefix(1);
    std::string text;
    text.reserve(QuotedLength(rest));
    while (true) {
        const std::size_t plain = rest.find_first_of("\"\\");
        if (plain == std::string_view::npos) throw ValueTextError("a text has no closing quote");
        text += rest.substr(0, plain);
        const bool ends = rest[plain] == '"';
        rest.remove_prefix(plain + 1);
        if (ends) return text;
        text += Unescaped(rest);
    }
}

std::string FormatValue(const Variant& value) {
    switch (value.Type()) {
        case VarType::Empty: return "empty";
        case VarType::Null: return "null";
        case VarType::Int16: return "int16 " + NumberText(*value.As<std::int16_t>());
        case VarType::Int32: return "int32 " + NumberText(*value.As<std::int32_t>());
        case VarType::Double: return "double " + NumberText(*value.As<double>());
        case VarType::Date: return "date " + NumberText(value.As<Date>()->value);
        case VarType::Text: return "text " + QuotedText(*value.As<std::string>());
        case VarType::Boolean: return *value.As<bool>() ? "boolean true" : "boolean false";
        case VarType::Object: break;
    }
    return ObjectText(*value.As<ObjectRef>());
}

Variant ParseValue(std::string_view text) {
    PartReader parts(text);
    const std::string_view type = parts.Word("the value");
    const auto* reader = std::find_if(std::begin(kReaders), std::end(kReaders),
                                      [type](const Reader& r) { return r.type == type; });
    if (reader == std::end(kReaders)) throw ValueTextError("unknown type " + Cited(type));
    Variant value = reader->read(parts);
    if (!parts.AtEnd()) {
        throw ValueTextError(Cited(parts.Word("the end")) + " stands behind the value");
    }
    return value;
}

}  // namespace velmora
