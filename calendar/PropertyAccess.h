#pragma once

#include "calendar/PropertyRows.h"
#include "platform/Automation.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <type_traits>

namespace velmora {

/// A published property reached by its name.
template <class Owner>
struct Member {
    std::string_view name;
    Variant (*get)(const Owner&);
    void (*let)(Owner&, const Variant&);  // null: read-only
};

/// What a client hands in, as the row's setter takes it. Error 13: it does not convert.
template <class Row, class Owner>
auto ForSetter(const Owner& owner, const Variant& value) {
    if constexpr (std::is_same_v<Row, DateProperty>) {
        return value;
    } else if constexpr (std::is_same_v<typename Row::Value, Date>) {
        return owner.ToDate(value);
    } else {
        return FromVariant<typename Row::Value>(value);
    }
}

/// A row of an owner that has `Get` and `Let` for it.
template <class Owner, const auto& kRow>
constexpr Member<Owner> MemberOf(std::string_view name = kRow.name) {
    using Row = std::remove_cvref_t<decltype(kRow)>;
    if constexpr (std::is_base_of_v<ObjectProperty, Row>) {
        return {name, [](const Owner& owner) { return Variant(kRow.Get(owner)); }, nullptr};
    } else {
        return {name, [](const Owner& owner) { return ToVariant(owner.Get(kRow)); },
                [](Owner& owner, const Variant& value) {
                    owner.Let(kRow, ForSetter<Row>(owner, value));
                }};
    }
}

/// The members of a class, found by their names in any case.
template <class Owner, std::size_t kCount>
class Members {
public:
    consteval explicit Members(const std::array<Member<Owner>, kCount>& members)
        : m_sorted(members) {
        std::sort(m_sorted.begin(), m_sorted.end(), Precedes);
    }

    /// Error 438: there is none of that name.
    Variant Get(const Owner& owner, std::string_view name) const { return Find(name).get(owner); }
    /// Error 438: there is none of that name, or it is read-only.
    void Let(Owner& owner, std::string_view name, const Variant& value) const {
        const auto let = Find(name).let;
        if (!let) throw AutomationError(ErrorNumber::MemberNotFound);
        let(owner, value);
    }

private:
    static constexpr bool Precedes(const Member<Owner>& a, const Member<Owner>& b) {
        return PrecedesIgnoringCase(a.name, b.name);
    }
    const Member<Owner>& Find(std::string_view name) const {
        const auto found = std::lower_bound(m_sorted.begin(), m_sorted.end(),
                                            Member<Owner>{name, {}, {}}, Precedes);
        if (found == m_sorted.end() || PrecedesIgnoringCase(name, found->name)) {
            throw AutomationError(ErrorNumber::MemberNotFound);
        }
        return *found;
    }

    std::array<Member<Owner>, kCount> m_sorted;
};

template <class Owner, const auto&... kRow>
consteval auto MembersOf(Rows<kRow...>) {
    return Members(std::array{MemberOf<Owner, kRow>()...});
}

}  // namespace velmora
