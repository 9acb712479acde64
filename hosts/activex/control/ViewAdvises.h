#pragma once

#include <ocidl.h>
#include <wrl/client.h>

namespace velmora {

/// Whoever is told of what happens to a control's picture.
class ViewAdvises {
public:
    void Changed(IDataObject& control);
    void Saved() const;
    void Closed() const;

    /// One sink at a time. `ADVF_PRIMEFIRST` is the caller's.
    void SetView(DWORD aspects, DWORD flags, IAdviseSink* sink);
    HRESULT GetView(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const;

    // Calls of the holders, which are made on first use.

    template <class... Parameters, class... Arguments>
    HRESULT OfObject(HRESULT (STDMETHODCALLTYPE IOleAdviseHolder::*call)(Parameters...),
                     Arguments... arguments) {
        const HRESULT made = m_object ? S_OK : CreateOleAdviseHolder(&m_object);
        return FAILED(made) ? made : (m_object.Get()->*call)(arguments...);
    }
    template <class... Parameters, class... Arguments>
    HRESULT OfData(HRESULT (STDMETHODCALLTYPE IDataAdviseHolder::*call)(Parameters...),
                   Arguments... arguments) {
        const HRESULT made = m_data ? S_OK : CreateDataAdviseHolder(&m_data);
        return FAILED(made) ? made : (m_data.Get()->*call)(arguments...);
    }

private:
    Microsoft::WRL::ComPtr<IOleAdviseHolder> m_object;
    Microsoft::WRL::ComPtr<IDataAdviseHolder> m_data;
    Microsoft::WRL::ComPtr<IAdviseSink> m_view;
    DWORD m_viewAspects = 0;
    DWORD m_viewFlags = 0;
};

}  // namespace velmora
