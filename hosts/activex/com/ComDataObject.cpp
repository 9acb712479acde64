#include "hosts/activex/com/ComDataObject.h"

#include "hosts/activex/com/ComDispatch.h"
#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/com/Enumerator.h"
#include "hosts/activex/win32/PixelBitmap.h"
#include "hosts/activex/win32/WinText.h"
#include "platform/ScaleMode.h"

#include <VelmoraCalendarInterfaces.h>
#include <ole2.h>
#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

CLIPFORMAT ClipFormatOf(std::int16_t format) { return static_cast<CLIPFORMAT>(format); }

FORMATETC Etc(CLIPFORMAT format) {
    const DWORD medium = format == CF_BITMAP ? TYMED_GDI : TYMED_HGLOBAL;
    return {format, nullptr, DVASPECT_CONTENT, -1, medium};
}

// From and to the system's memory.

std::string BytesOf(HGLOBAL memory) {
    const auto* bytes = static_cast<const char*>(GlobalLock(memory));
    std::string text = bytes ? std::string(bytes, GlobalSize(memory)) : std::string();
    GlobalUnlock(memory);
    return text;
}

HGLOBAL MemoryOf(const void* bytes, std::size_t count) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, std::max<std::size_t>(count, 1));
    if (!memory) throw std::bad_alloc();
    std::memcpy(GlobalLock(memory), bytes, count);
    GlobalUnlock(memory);
    return memory;
}

/// Up to the end mark, which a foreign program may have left out.
std::string WideTextOf(HGLOBAL memory) {
    const std::string bytes = BytesOf(memory);
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    return ToUtf8(text.substr(0, text.find(L'\0')));
}

std::string FilesOf(HDROP drop) {
    std::string paths;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
        path.resize(DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
        if (!paths.empty()) paths += '\n';
        paths += ToUtf8(path);
    }
    return paths;
}

HGLOBAL MemoryOfFiles(std::string_view paths) {
    std::wstring names = ToWide(paths);
    std::replace(names.begin(), names.end(), L'\n', L'\0');
    names.append(2, L'\0');
    DROPFILES header{};
    header.pFiles = sizeof header;
    header.fWide = TRUE;
    std::string bytes(sizeof header + names.size() * sizeof(wchar_t), '\0');
    std::memcpy(bytes.data(), &header, sizeof header);
    std::memcpy(bytes.data() + sizeof header, names.data(), names.size() * sizeof(wchar_t));
    return MemoryOf(bytes.data(), bytes.size());
}

HGLOBAL MemoryOfAnsi(const std::wstring& text) {
    const int length = static_cast<int>(text.size()) + 1;  // with the end mark
    const int size =
        WideCharToMultiByte(CP_ACP, 0, text.c_str(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.c_str(), length, bytes.data(), size, nullptr, nullptr);
    return MemoryOf(bytes.data(), bytes.size());
}

HGLOBAL MemoryOfText(CLIPFORMAT format, std::string_view text) {
    const std::wstring wide = ToWide(text);
    switch (format) {
        case CF_UNICODETEXT: return MemoryOf(wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
        case CF_TEXT: return MemoryOfAnsi(wide);
        case CF_HDROP: return MemoryOfFiles(text);
        default: return MemoryOf(text.data(), text.size());
    }
}

Variant PictureOf(HBITMAP bitmap) {
    const auto image = ReadBitmap(bitmap);
    if (!image) return {};
    const HDC screen = GetDC(nullptr);
    const Size himetric{MulDiv(image->width, kHimetricPerInch, GetDeviceCaps(screen, LOGPIXELSX)),
                        MulDiv(image->height, kHimetricPerInch, GetDeviceCaps(screen, LOGPIXELSY))};
    ReleaseDC(nullptr, screen);
    return ObjectRef(std::make_shared<StdPicture>(PictureType::Bitmap, himetric, image));
}

class WrappedData final : public DataObject {
public:
    explicit WrappedData(IDataObject& data) : m_data(&data) {}

    bool HasFormat(std::int16_t format) const override {
        FORMATETC etc = Etc(ClipFormatOf(format));
        if (m_data->QueryGetData(&etc) == S_OK) return true;
        etc.cfFormat = CF_UNICODETEXT;
        return format == kTextFormat && m_data->QueryGetData(&etc) == S_OK;
    }

    Variant GetData(std::int16_t format) const override {
        if (format != kTextFormat) return Get(ClipFormatOf(format));
        const Variant text = Get(CF_UNICODETEXT);
        return text == Variant() ? Get(CF_TEXT) : text;
    }

    /// The source alone can change what it drags.
    void SetData(std::int16_t, const Variant&) override {}

private:
    Variant Get(CLIPFORMAT format) const {
        FORMATETC etc = Etc(format);
        STGMEDIUM medium{};
        if (FAILED(m_data->GetData(&etc, &medium))) return {};
        Variant value;
        if (medium.tymed == TYMED_GDI && format == CF_BITMAP) {
            value = PictureOf(medium.hBitmap);
        } else if (medium.tymed == TYMED_HGLOBAL) {
            value = TextOf(format, medium.hGlobal);
        }
        ReleaseStgMedium(&medium);
        return value;
    }

    static Variant TextOf(CLIPFORMAT format, HGLOBAL memory) {
        if (format == CF_UNICODETEXT) return WideTextOf(memory);
        if (format == CF_HDROP) return FilesOf(static_cast<HDROP>(memory));
        const std::string bytes = BytesOf(memory);
        if (format != CF_TEXT) return bytes;
        const std::string text = bytes.substr(0, bytes.find('\0'));
        const int length = static_cast<int>(text.size());
        std::wstring wide(text.size(), L'\0');
        wide.resize(static_cast<std::size_t>(
            MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length)));
        return ToUtf8(wide);
    }

    const ComPtr<IDataObject> m_data;
};

/// A data object as its target sees it.
class OfferedData final : public ComObject<IDataObject> {
public:
    OfferedData(DataRef data, std::function<void(DataRef, std::int16_t)> fetch)
        : m_data(std::move(data)), m_fetch(std::move(fetch)) {}

    STDMETHODIMP GetData(FORMATETC* etc, STGMEDIUM* medium) override {
        if (!etc || !medium) return E_POINTER;
        *medium = {};
        const HRESULT offered = QueryGetData(etc);
        if (offered != S_OK) return offered;
        const ComPtr<IDataObject> self = this;
        return Guard([&] { Fill(*etc, *medium); });
    }
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) override { return DV_E_FORMATETC; }
    STDMETHODIMP QueryGetData(FORMATETC* etc) override {
        if (!etc) return E_POINTER;
        if (etc->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
        if (!m_data->HasFormat(FormatOf(etc->cfFormat))) return DV_E_FORMATETC;
        return etc->tymed & Etc(etc->cfFormat).tymed ? S_OK : DV_E_TYMED;
    }
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC* canonical) override {
        if (!canonical) return E_POINTER;
        canonical->ptd = nullptr;
        return DATA_S_SAMEFORMATETC;
    }
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override {
        if (!formats) return E_POINTER;
        *formats = nullptr;
        if (direction != DATADIR_GET) return E_NOTIMPL;
        std::vector<FORMATETC> all;
        const HRESULT listed = Guard([&] {
            for (const std::int16_t format : Formats()) {
                if (format == kTextFormat) all.push_back(Etc(CF_UNICODETEXT));
                all.push_back(Etc(ClipFormatOf(format)));
            }
        });
        if (FAILED(listed)) return listed;
        return Enumerator<IEnumFORMATETC, FORMATETC>::Make(all, nullptr, formats);
    }
    STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    STDMETHODIMP DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }

private:
    static std::int16_t FormatOf(CLIPFORMAT format) {
        return format == CF_UNICODETEXT ? kTextFormat : static_cast<std::int16_t>(format);
    }

    std::vector<std::int16_t> Formats() const {
        if (const auto* held = dynamic_cast<const HeldData*>(m_data.get())) return held->Formats();
        std::vector<std::int16_t> formats;
        for (const std::int16_t format : {kTextFormat, kBitmapFormat, kFilesFormat}) {
            if (m_data->HasFormat(format)) formats.push_back(format);
        }
        return formats;
    }

    void Fill(const FORMATETC& etc, STGMEDIUM& medium) const {
        const std::int16_t format = FormatOf(etc.cfFormat);
        if (m_fetch && m_data->GetData(format) == Variant()) m_fetch(m_data, format);
        const Variant value = m_data->GetData(format);
        medium.tymed = Etc(etc.cfFormat).tymed;
        if (etc.cfFormat == CF_BITMAP) {
            const PictureRef picture = ToObject<StdPicture>(value);
            const auto image = picture ? WithPixels(picture)->Image() : nullptr;
            medium.hBitmap = image ? MakeBitmap(*image) : nullptr;
            if (!medium.hBitmap) throw ComFailure(DV_E_FORMATETC);
        } else {
            const auto* text = value.As<std::string>();
            if (!text) throw ComFailure(DV_E_FORMATETC);
            medium.hGlobal = MemoryOfText(etc.cfFormat, *text);
        }
    }

    const DataRef m_data;
    const std::function<void(DataRef, std::int16_t)> m_fetch;
};

class ScriptData final : public DualObject<::_VmDataObject, ICoreObject> {
public:
    ScriptData(DataRef data, std::shared_ptr<ObjectBridge> objects)
        : m_data(std::move(data)), m_objects(std::move(objects)) {}

    STDMETHODIMP_(ObjectRef) Core() override { return m_data; }

    STDMETHODIMP Clear() override {
        if (auto* const held = dynamic_cast<HeldData*>(m_data.get())) held->Clear();
        return S_OK;
    }
    STDMETHODIMP GetData(short format, VARIANT* value) override {
        if (!value) return E_POINTER;
        VariantInit(value);
        return Guard([&] { ToComVariant(m_data->GetData(format), *m_objects, *value); });
    }
    STDMETHODIMP GetFormat(short format, VARIANT_BOOL* value) override {
        if (!value) return E_POINTER;
        *value = VARIANT_FALSE;
        return Guard([&] { *value = m_data->HasFormat(format) ? VARIANT_TRUE : VARIANT_FALSE; });
    }
    STDMETHODIMP SetData(VARIANT value, VARIANT format) override {
        return Guard([&] {
            const Variant number = FromComVariant(format, *m_objects);
            m_data->SetData(number == Variant() ? kTextFormat : FromVariant<std::int16_t>(number),
                            FromComVariant(value, *m_objects));
        });
    }

private:
    const DataRef m_data;
    const std::shared_ptr<ObjectBridge> m_objects;
};

}  // namespace

DataRef WrapData(IDataObject& data) { return std::make_shared<WrappedData>(data); }

ComPtr<IDataObject> OfferData(DataRef data, std::function<void(DataRef, std::int16_t)> fetch) {
    ComPtr<IDataObject> offered;
    offered = Adopt(new OfferedData(std::move(data), std::move(fetch)));
    return offered;
}

ComPtr<IDispatch> PublishData(const DataRef& data, std::shared_ptr<ObjectBridge> objects) {
    ComPtr<IDispatch> published;
    published = Adopt(static_cast<::_VmDataObject*>(new ScriptData(data, std::move(objects))));
    return published;
}

}  // namespace velmora
