#include "apps/vmhost/Persistence.h"

#include "apps/vmhost/HostError.h"
#include "hosts/activex/win32/WinText.h"

#include <shlwapi.h>

#include <type_traits>
#include <vector>

namespace velmora::vmhost {
namespace {

template <class Persist, class Place, class Action>
void With(IOleObject& control, const Saved& saved, Action action) {
    ComPtr<Persist> persist;
    ComPtr<Place> place;
    Check(control.QueryInterface(IID_PPV_ARGS(persist.GetAddressOf())), "asking to load or save");
    Check(saved.where->QueryInterface(IID_PPV_ARGS(place.GetAddressOf())), "opening the place");
    Check(action(*persist.Get(), place.Get()), "loading or saving");
}

std::string Hexadecimal(const std::vector<BYTE>& bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const BYTE byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

std::vector<BYTE> Bytes(const std::string& hexadecimal) {
    std::vector<BYTE> bytes;
    for (std::size_t at = 0; at + 1 < hexadecimal.size(); at += 2) {
        bytes.push_back(static_cast<BYTE>(std::stoul(hexadecimal.substr(at, 2), nullptr, 16)));
    }
    return bytes;
}

ComPtr<IStream> MemoryStream(const std::vector<BYTE>& bytes) {
    ComPtr<IStream> stream;
    Check(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf()), "making a stream");
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    return stream;
}

std::vector<BYTE> Contents(IStream& stream) {
    STATSTG state{};
    stream.Stat(&state, STATFLAG_NONAME);
    std::vector<BYTE> bytes(static_cast<std::size_t>(state.cbSize.QuadPart));
    stream.Seek({}, STREAM_SEEK_SET, nullptr);
    stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    return bytes;
}

std::string ObjectText(IUnknown* object) {
    ComPtr<IPersistStream> persist;
    if (!object) return "nothing";
    Check(object->QueryInterface(IID_PPV_ARGS(persist.GetAddressOf())), "saving an object");
    const ComPtr<IStream> stream = MemoryStream({});
    Check(OleSaveToStream(persist.Get(), stream.Get()), "saving an object");
    return Hexadecimal(Contents(*stream.Get()));
}

HRESULT ReadObject(const std::string& text, VARIANT& value) {
    V_VT(&value) = VT_UNKNOWN;
    V_UNKNOWN(&value) = nullptr;
    if (text == "nothing") return S_OK;
    return OleLoadFromStream(MemoryStream(Bytes(text)).Get(), IID_IUnknown,
                             reinterpret_cast<void**>(&V_UNKNOWN(&value)));
}

std::string Escaped(const std::string& text) {
    std::string result;
    for (const char letter : text) {
        if (letter == '\\')
            result += "\\\\";
        else if (letter == '\r')
            result += "\\r";
        else if (letter == '\n')
            result += "\\n";
        else
            result += letter;
    }
    return result;
}

std::string Unescaped(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\\' || at + 1 == text.size()) {
            result += text[at];
            continue;
        }
        const char letter = text[++at];
        result += letter == 'r' ? '\r' : letter == 'n' ? '\n' : letter;
    }
    return result;
}

}  // namespace

void LoadControl(IOleObject& control, const Saved& saved) {
    const auto load = [](auto& persist, auto* place) { return persist.Load(place); };
    switch (saved.medium) {
        case Medium::Stream: return With<IPersistStreamInit, IStream>(control, saved, load);
        case Medium::Storage: return With<IPersistStorage, IStorage>(control, saved, load);
        case Medium::Bag:
            return With<IPersistPropertyBag, IPropertyBag>(
                control, saved,
                [](auto& persist, auto* bag) { return persist.Load(bag, nullptr); });
        case Medium::New: break;
    }
    ComPtr<IPersistStreamInit> persist;
    if (SUCCEEDED(control.QueryInterface(IID_PPV_ARGS(persist.GetAddressOf())))) {
        Check(persist->InitNew(), "preparing");
    }
}

void SaveControl(IOleObject& control, const Saved& target) {
    switch (target.medium) {
        case Medium::Stream:
            return With<IPersistStreamInit, IStream>(
                control, target,
                [](auto& persist, auto* stream) { return persist.Save(stream, TRUE); });
        case Medium::Storage:
            return With<IPersistStorage, IStorage>(
                control, target, [](auto& persist, auto* storage) {
                    const HRESULT code = OleSave(&persist, storage, FALSE);
                    persist.SaveCompleted(nullptr);
                    return code;
                });
        case Medium::Bag:
            return With<IPersistPropertyBag, IPropertyBag>(
                control, target,
                [](auto& persist, auto* bag) { return persist.Save(bag, TRUE, TRUE); });
        case Medium::New: break;
    }
}

void TextBag::AddLine(const std::string& line) {
    const std::size_t equals = line.find(" = ");
    if (equals != std::string::npos) m_values[line.substr(0, equals)] = line.substr(equals + 3);
}

std::string TextBag::Lines() const {
    std::string lines;
    for (const auto& [name, value] : m_values) lines += name + " = " + value + '\n';
    return lines;
}

STDMETHODIMP TextBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) try {
    if (!name || !value) return E_POINTER;
    const auto stored = m_values.find(ToUtf8(name));
    if (stored == m_values.end()) return E_INVALIDARG;
    const VARTYPE asked = V_VT(value);
    const std::size_t colon = stored->second.find(':');
    const auto type = static_cast<VARTYPE>(std::stoi(stored->second));
    const std::string text = stored->second.substr(colon + 1);
    if (type == VT_UNKNOWN) return ReadObject(text, *value);
    const Value plain(Unescaped(text));
    Value converted = type == VT_DATE ? plain.As(VT_R8).As(type) : plain.As(type);
    if (asked != VT_EMPTY && asked != type) converted = converted.As(asked);
    VariantInit(value);
    return VariantCopy(value, &converted);
} catch (const std::exception&) {
    return E_FAIL;
}

STDMETHODIMP TextBag::Write(LPCOLESTR name, VARIANT* value) try {
    if (!name || !value) return E_POINTER;
    const Value copy = Value::CopyOf(*value);
    std::string& stored = m_values[ToUtf8(name)];
    if (copy.Type() == VT_UNKNOWN || copy.Type() == VT_DISPATCH) {
        stored = std::to_string(VT_UNKNOWN) + ':' + ObjectText(copy.Object());
        return S_OK;
    }
    // A date is kept by its number: text has no years before 100.
    const Value plain = copy.Type() == VT_DATE ? Value(V_DATE(&copy.Get())) : copy;
    stored = std::to_string(copy.Type()) + ':' + Escaped(plain.Text());
    return S_OK;
} catch (const HostError& error) {
    return error.Code();
}

}  // namespace velmora::vmhost
