#include "hosts/activex/control/OleControl.h"

#include "hosts/activex/com/Enumerator.h"
#include "platform/ScaleMode.h"

#include <olectl.h>

#include <array>

namespace velmora {

using Microsoft::WRL::ComPtr;

namespace {

constexpr std::array<FORMATETC, 3> kFormats = {{
    {CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF},
    {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT},
    {CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI},
}};

/// The state of a foreign device context, restored at the end.
class SavedContext {
public:
    explicit SavedContext(HDC context) : m_context(context), m_state(SaveDC(context)) {}
    SavedContext(const SavedContext&) = delete;
    SavedContext& operator=(const SavedContext&) = delete;
    ~SavedContext() { RestoreDC(m_context, m_state); }

private:
    HDC m_context;
    int m_state;
};

class OwnedContext {
public:
    explicit OwnedContext(HDC context) : m_context(context) {}
    OwnedContext(const OwnedContext&) = delete;
    OwnedContext& operator=(const OwnedContext&) = delete;
    ~OwnedContext() {
        if (m_context) DeleteDC(m_context);
    }

    HDC Get() const noexcept { return m_context; }

private:
    HDC m_context;
};

/// A metafile may be played anywhere: only its window says where `bounds` lies, no viewport.
void MapWindow(HDC context, const RECT& bounds, const RECTL& window, Size client) {
    const auto scale = [](LONG value, int to, LONG from) { return MulDiv(value, to, from); };
    const LONG width = bounds.right - bounds.left, height = bounds.bottom - bounds.top;
    SetMapMode(context, MM_ANISOTROPIC);
    SetWindowExtEx(context, scale(window.right, client.width, width),
                   scale(window.bottom, client.height, height), nullptr);
    SetWindowOrgEx(context, scale(window.left - bounds.left, client.width, width),
                   scale(window.top - bounds.top, client.height, height), nullptr);
}

void MapViewport(HDC context, RECT bounds, Size client) {
    POINT corners[] = {{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
    LPtoDP(context, corners, 2);
    SetMapMode(context, MM_ANISOTROPIC);
    SetWindowOrgEx(context, 0, 0, nullptr);
    SetWindowExtEx(context, client.width, client.height, nullptr);
    SetViewportOrgEx(context, corners[0].x, corners[0].y, nullptr);
    SetViewportExtEx(context, corners[1].x - corners[0].x, corners[1].y - corners[0].y, nullptr);
}

}  // namespace

void OleControl::ApplyExtent() {
    const int dpi = Dpi();
    const Size pixels{MulDiv(m_extent.cx, dpi, kHimetricPerInch),
                      MulDiv(m_extent.cy, dpi, kHimetricPerInch)};
    m_window.Extent(pixels);
    m_activation.AskForSize(pixels);
}

void OleControl::ViewChanged() {
    const Hold hold(*this);
    m_advises.Changed(*this);
}

STDMETHODIMP OleControl::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC context,
                              LPCRECTL bounds, LPCRECTL windowBounds,
                              BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
    if (aspect != DVASPECT_CONTENT && aspect != DVASPECT_OPAQUE) return DV_E_DVASPECT;
    if (!context || !bounds) return E_POINTER;
    const Hold hold(*this);
    return Guard([&] {
        EnsureInitialized();
        PaintInto(context, {bounds->left, bounds->top, bounds->right, bounds->bottom},
                  windowBounds);
    });
}

/// The control paints its client area in pixels; the device context makes the rectangle of them.
void OleControl::PaintInto(HDC context, const RECT& bounds, const RECTL* windowBounds) {
    const Size client = m_window.ClientSize();
    const bool isEmpty = bounds.left == bounds.right || bounds.top == bounds.bottom;
    if (client.width <= 0 || client.height <= 0 || isEmpty) return;
    const SavedContext saved(context);
    const bool isMetafile = GetDeviceCaps(context, TECHNOLOGY) == DT_METAFILE;
    if (isMetafile && windowBounds) {
        MapWindow(context, bounds, *windowBounds, client);
    } else {
        MapViewport(context, bounds, client);
    }
    IntersectClipRect(context, 0, 0, client.width, client.height);
    PaintAll(context);
    m_window.PaintChildren(context);
}

void OleControl::PaintAll(HDC context) {
    const Size client = m_window.ClientSize();
    const Rect all[] = {{0, 0, client.width, client.height}};
    Paint(context, all);
}

STDMETHODIMP OleControl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                     LOGPALETTE** colors) {
    if (!colors) return E_POINTER;
    *colors = nullptr;
    return S_FALSE;
}

STDMETHODIMP OleControl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    const Hold hold(*this);
    m_advises.SetView(aspects, flags, sink);
    if (sink && (flags & ADVF_PRIMEFIRST)) ViewChanged();
    return S_OK;
}

STDMETHODIMP OleControl::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, SIZEL* extent) {
    return GetExtent(aspect, extent);
}

STDMETHODIMP OleControl::GetRect(DWORD aspect, RECTL* rect) {
    if (!rect) return E_POINTER;
    if (aspect != DVASPECT_CONTENT && aspect != DVASPECT_OPAQUE) return DV_E_DVASPECT;
    *rect = {0, 0, m_extent.cx, m_extent.cy};
    return S_OK;
}

STDMETHODIMP OleControl::GetViewStatus(DWORD* status) {
    if (!status) return E_POINTER;
    *status = VIEWSTATUS_OPAQUE;
    return S_OK;
}

STDMETHODIMP OleControl::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG,
                                       DWORD* result) {
    if (!bounds || !result) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *result = PtInRect(bounds, point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP OleControl::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rect, LONG,
                                      DWORD* result) {
    if (!bounds || !rect || !result) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    RECT common{};
    *result = IntersectRect(&common, bounds, rect) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP OleControl::GetNaturalExtent(DWORD, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*,
                                          SIZEL* extent) {
    if (!extent) return E_POINTER;
    return E_NOTIMPL;  // any size suits
}

HENHMETAFILE OleControl::MakeEnhancedMetafile() {
    const RECT frame{0, 0, m_extent.cx, m_extent.cy};
    const HDC context = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    if (!context) return nullptr;
    const int width = MulDiv(m_extent.cx, GetDeviceCaps(context, LOGPIXELSX), kHimetricPerInch);
    const int height = MulDiv(m_extent.cy, GetDeviceCaps(context, LOGPIXELSY), kHimetricPerInch);
    PaintInto(context, {0, 0, width, height}, nullptr);
    return CloseEnhMetaFile(context);
}

HGLOBAL OleControl::MakeMetafilePicture() {
    const HDC context = CreateMetaFileW(nullptr);
    if (!context) return nullptr;
    const Size client = m_window.ClientSize();
    const RECTL window{0, 0, client.width, client.height};
    PaintInto(context, {0, 0, client.width, client.height}, &window);
    const HMETAFILE metafile = CloseMetaFile(context);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT));
    if (auto* const picture = memory ? static_cast<METAFILEPICT*>(GlobalLock(memory)) : nullptr) {
        *picture = {MM_ANISOTROPIC, m_extent.cx, m_extent.cy, metafile};
        GlobalUnlock(memory);
        return memory;
    }
    DeleteMetaFile(metafile);
    return nullptr;
}

HBITMAP OleControl::MakeBitmap() {
    const Size client = m_window.ClientSize();
    const HDC screen = GetDC(nullptr);
    const OwnedContext context(CreateCompatibleDC(screen));
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, client.width, client.height);
    ReleaseDC(nullptr, screen);
    if (!context.Get() || !bitmap) return nullptr;
    const HGDIOBJ before = SelectObject(context.Get(), bitmap);
    PaintInto(context.Get(), {0, 0, client.width, client.height}, nullptr);
    SelectObject(context.Get(), before);
    return bitmap;
}

STDMETHODIMP OleControl::GetData(FORMATETC* format, STGMEDIUM* medium) {
    if (!medium) return E_POINTER;
    *medium = {};
    if (const HRESULT known = QueryGetData(format); known != S_OK) return known;
    const Hold hold(*this);
    return Guard([&] {
        EnsureInitialized();
        switch (format->cfFormat) {
            case CF_ENHMETAFILE: medium->hEnhMetaFile = MakeEnhancedMetafile(); break;
            case CF_METAFILEPICT: medium->hMetaFilePict = MakeMetafilePicture(); break;
            default: medium->hBitmap = MakeBitmap(); break;
        }
        if (!medium->hGlobal) return E_OUTOFMEMORY;
        for (const FORMATETC& known : kFormats) {
            if (known.cfFormat == format->cfFormat) medium->tymed = known.tymed;
        }
        return S_OK;
    });
}

STDMETHODIMP OleControl::QueryGetData(FORMATETC* format) {
    if (!format) return E_POINTER;
    if (format->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (format->lindex != -1) return DV_E_LINDEX;
    for (const FORMATETC& known : kFormats) {
        if (known.cfFormat == format->cfFormat) {
            return format->tymed & known.tymed ? S_OK : DV_E_TYMED;
        }
    }
    return DV_E_FORMATETC;
}

STDMETHODIMP OleControl::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) {
    if (!format || !canonical) return E_POINTER;
    *canonical = *format;
    canonical->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

STDMETHODIMP OleControl::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
    if (!formats) return E_POINTER;
    *formats = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    return Guard([&] {
        return Enumerator<IEnumFORMATETC, FORMATETC>::Make({kFormats.begin(), kFormats.end()},
                                                           nullptr, formats);
    });
}

}  // namespace velmora
