#pragma once

#include "platform/Variant.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

/// What is dragged from a control and dropped on it.
namespace velmora {

/// Effects of a drag, as bits.
inline constexpr std::int32_t kDropNone = 0;
inline constexpr std::int32_t kDropCopy = 1;
inline constexpr std::int32_t kDropMove = 2;
inline constexpr std::int32_t kDropLink = 4;
inline constexpr std::int32_t kDropAny = kDropCopy | kDropMove | kDropLink;

/// Formats of a data object that every platform has; others are numbers of the platform.
inline constexpr std::int16_t kTextFormat = 1;
inline constexpr std::int16_t kBitmapFormat = 2;  // a picture object
inline constexpr std::int16_t kFilesFormat = 15;  // text: the paths, one a line

/// Drag-and-drop content by format number.
class DataObject : public Object {
public:
    virtual bool HasFormat(std::int16_t format) const = 0;
    /// Empty when there is nothing in that format.
    virtual Variant GetData(std::int16_t format) const = 0;
    virtual void SetData(std::int16_t format, const Variant& value) = 0;
};

using DataRef = std::shared_ptr<DataObject>;

/// Holds what is put into it. An Empty value announces its format without the data.
class HeldData final : public DataObject {
public:
    bool HasFormat(std::int16_t format) const override { return m_values.contains(format); }
    Variant GetData(std::int16_t format) const override {
        const auto found = m_values.find(format);
        return found == m_values.end() ? Variant() : found->second;
    }
    void SetData(std::int16_t format, const Variant& value) override { m_values[format] = value; }

    void Clear() noexcept { m_values.clear(); }
    std::vector<std::int16_t> Formats() const {
        std::vector<std::int16_t> formats;
        for (const auto& entry : m_values) formats.push_back(entry.first);
        return formats;
    }

private:
    std::map<std::int16_t, Variant> m_values;
};

/// What the source of a drag is asked on the way. They outlive the drag, as targets may still fetch
/// the data afterwards, and do nothing when the source is gone.
struct DragEvents {
    /// The target wants the data of a format that was announced without.
    std::function<void(DataRef data, std::int16_t format)> setData;
    /// The drop would have that effect now. False: the source has set a pointer of its own.
    std::function<bool(std::int32_t effect)> giveFeedback;
};

}  // namespace velmora
