#include "hosts/activex/control/ViewAdvises.h"

#include <utility>

namespace velmora {

using Microsoft::WRL::ComPtr;

void ViewAdvises::Changed(IDataObject& control) {
    if (const ComPtr<IAdviseSink> sink = m_view) {
        if (m_viewFlags & ADVF_ONLYONCE) m_view.Reset();
        sink->OnViewChange(DVASPECT_CONTENT, -1);
    }
    if (const ComPtr<IDataAdviseHolder> data = m_data) data->SendOnDataChange(&control, 0, 0);
}

void ViewAdvises::Saved() const {
    if (const ComPtr<IOleAdviseHolder> object = m_object) object->SendOnSave();
}

void ViewAdvises::Closed() const {
    if (const ComPtr<IOleAdviseHolder> object = m_object) object->SendOnClose();
}

void ViewAdvises::SetView(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    const ComPtr<IAdviseSink> before = std::move(m_view);  // may come back when released
    m_view = sink;
    m_viewAspects = aspects;
    m_viewFlags = flags;
}

HRESULT ViewAdvises::GetView(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const {
    if (aspects) *aspects = m_viewAspects;
    if (flags) *flags = m_viewFlags;
    return sink ? m_view.CopyTo(sink) : S_OK;
}

}  // namespace velmora
