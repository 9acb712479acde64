#pragma once

#include "platform/Values.h"

#include <span>
#include <string>
#include <string_view>

namespace velmora {

class Variant;

/// The controls of a property page, as its dialog shows them. A disabled one is empty. What the
/// page sets may come back as an edit: the page knows its own changes.
class PageControl {
public:
    virtual ~PageControl() = default;
    virtual void Enabled(bool enabled) = 0;
};

class PageList : public PageControl {
public:
    /// The host shows them in its user's language.
    virtual void Items(std::span<const std::string_view> items) = 0;
    virtual int ListIndex() const = 0;  // -1 when nothing is chosen
    virtual void ListIndex(int index) = 0;
};

class PageCheckBox : public PageControl {
public:
    virtual bool Checked() const = 0;
    virtual void Checked(bool checked) = 0;
};

class PageText : public PageControl {
public:
    virtual std::string Text() const = 0;
    virtual void Text(const std::string& text) = 0;
    virtual void ForeColor(Rgb color) = 0;
};

/// Shows a value, and lets the user choose another one in a dialog of the host's.
class PageChoice : public PageControl {
public:
    virtual const Variant& Value() const = 0;
    virtual void Value(const Variant& value) = 0;  // Empty when disabled
};

/// The dialog around a page.
class PageSite {
public:
    virtual ~PageSite() = default;
    /// The page differs from its control, or no more; enables Apply.
    virtual void Changed(bool changed) = 0;
    /// A message with an OK button; returns when it has been read.
    virtual void MessageBox(const std::string& text) = 0;
    /// A text of the pages in their user's language; as it stands where it is not known in it.
    virtual std::string Translated(std::string_view text) const = 0;
};

inline constexpr Rgb kValidText = 0x000000;
inline constexpr Rgb kInvalidText = 0x0000FF;  // red

}  // namespace velmora
