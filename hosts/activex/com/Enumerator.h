#pragma once

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComObject.h"

#include <windows.h>

#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace velmora {

/// How an enumeration hands an item out: a copy that the caller owns. Items that own something give
/// their own form of it.
template <class Item>
struct ItemCopy {
    /// A failure leaves nothing behind.
    static HRESULT Copy(Item& to, const Item& from) noexcept {
        to = from;
        return S_OK;
    }
    static void Free(Item&) noexcept {}
};

template <class Interface>
struct ItemCopy<Interface*> {
    static HRESULT Copy(Interface*& to, Interface* const& from) noexcept {
        to = from;
        if (to) to->AddRef();
        return S_OK;
    }
    static void Free(Interface*& item) noexcept {
        if (item) std::exchange(item, nullptr)->Release();
    }
};

/// One of the platform's `IEnum` interfaces over items as they were when it was made.
template <class Interface, class Item>
class Enumerator final : public ComObject<Interface> {
public:
    /// Copies the items. `owner`, which may be null, lives as long as the enumeration.
    Enumerator(const std::vector<Item>& items, IUnknown* owner) : m_owner(owner) {
        m_items.reserve(items.size());
        for (const Item& item : items) {
            Item copy{};
            if (FAILED(ItemCopy<Item>::Copy(copy, item))) {
                FreeAll();
                throw std::bad_alloc();
            }
            m_items.push_back(copy);
        }
        if (m_owner) m_owner->AddRef();
    }

    static HRESULT Make(const std::vector<Item>& items, IUnknown* owner,
                        Interface** made) noexcept {
        if (!made) return E_POINTER;
        *made = nullptr;
        return Guard([&] { *made = new Enumerator(items, owner); });
    }

    STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override {
        if (fetched) *fetched = 0;
        if (!items || (!fetched && count != 1)) return E_POINTER;
        ULONG done = 0;
        for (; done < count && m_next < m_items.size(); ++done, ++m_next) {
            const HRESULT result = ItemCopy<Item>::Copy(items[done], m_items[m_next]);
            if (FAILED(result)) {
                while (done > 0) ItemCopy<Item>::Free(items[--done]);
                return result;
            }
        }
        if (fetched) *fetched = done;
        return done == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override {
        const auto left = m_items.size() - m_next;
        m_next += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        m_next = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** clone) override {
        if (!clone) return E_POINTER;
        *clone = nullptr;
        return Guard([&] {
            auto* const made = new Enumerator(m_items, m_owner);
            made->m_next = m_next;
            *clone = made;
        });
    }

private:
    ~Enumerator() override {
        FreeAll();
        if (m_owner) m_owner->Release();
    }
    void FreeAll() noexcept {
        for (Item& item : m_items) ItemCopy<Item>::Free(item);
        m_items.clear();
    }

    std::vector<Item> m_items;
    std::size_t m_next = 0;
    IUnknown* const m_owner;
};

}  // namespace velmora
