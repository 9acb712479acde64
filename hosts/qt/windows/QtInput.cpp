#include "hosts/qt/windows/QtInput.h"

#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmDateWidget.h"
#include "calendar/VmCalendar.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <utility>

namespace velmora {
namespace {

constexpr std::pair<int, std::int16_t> kVirtualKeys[] = {
    {Qt::Key_Backspace, 8},     {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},       {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13},       {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},        {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},          {Qt::Key_AltGr, 18},
    {Qt::Key_Pause, 19},        {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},       {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},       {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},          {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},         {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},        {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},        {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},       {Qt::Key_Help, 47},
    {Qt::Key_Meta, 91},         {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},     {Qt::Key_ScrollLock, 145},
    {Qt::Key_Semicolon, 186},   {Qt::Key_Colon, 186},
    {Qt::Key_Equal, 187},       {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},       {Qt::Key_Less, 188},
    {Qt::Key_Minus, 189},       {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190},      {Qt::Key_Greater, 190},
    {Qt::Key_Slash, 191},       {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192},   {Qt::Key_AsciiTilde, 192},
    {Qt::Key_BracketLeft, 219}, {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220},   {Qt::Key_Bar, 220},
    {Qt::Key_BraceRight, 221},  {Qt::Key_BracketRight, 221},
    {Qt::Key_Apostrophe, 222},  {Qt::Key_QuoteDbl, 222},
    {Qt::Key_ParenRight, '0'},  {Qt::Key_Exclam, '1'},
    {Qt::Key_At, '2'},          {Qt::Key_NumberSign, '3'},
    {Qt::Key_Dollar, '4'},      {Qt::Key_Percent, '5'},
    {Qt::Key_AsciiCircum, '6'}, {Qt::Key_Ampersand, '7'},
    {Qt::Key_Asterisk, '8'},    {Qt::Key_ParenLeft, '9'},
};

constexpr std::pair<int, std::int16_t> kKeypadOperators[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},  {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110},   {Qt::Key_Comma, 110}, {Qt::Key_Slash, 111},
};

template <std::size_t kCount>
std::int16_t Find(const std::pair<int, std::int16_t> (&keys)[kCount], int key) {
    for (const auto& [known, code] : keys) {
        if (known == key) return code;
    }
    return 0;
}

constexpr bool IsBetween(int key, int first, int last) { return first <= key && key <= last; }

}  // namespace

std::int16_t VirtualKeyOf(const QKeyEvent& event) {
    constexpr int kFirstFunctionKey = 112;
    constexpr int kKeypadZero = 96;
    const int key = event.key();
    const bool isDigit = IsBetween(key, Qt::Key_0, Qt::Key_9);
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (isDigit) return static_cast<std::int16_t>(key - Qt::Key_0 + kKeypadZero);
        if (const std::int16_t code = Find(kKeypadOperators, key)) return code;
    }
    if (isDigit || IsBetween(key, Qt::Key_A, Qt::Key_Z)) return static_cast<std::int16_t>(key);
    if (IsBetween(key, Qt::Key_F1, Qt::Key_F24)) {
        return static_cast<std::int16_t>(key - Qt::Key_F1 + kFirstFunctionKey);
    }
    return Find(kVirtualKeys, key);
}

std::int16_t CharacterOf(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Delete || event.text().isEmpty()) return 0;
    return static_cast<std::int16_t>(event.text().front().unicode());
}

std::int16_t ShiftOf(Qt::KeyboardModifiers modifiers) {
    return static_cast<std::int16_t>((modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) |
                                     (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) |
                                     (modifiers.testFlag(Qt::AltModifier) ? 4 : 0));
}

std::int16_t ButtonsOf(Qt::MouseButtons buttons) {
    return static_cast<std::int16_t>((buttons.testFlag(Qt::LeftButton) ? 1 : 0) |
                                     (buttons.testFlag(Qt::RightButton) ? 2 : 0) |
                                     (buttons.testFlag(Qt::MiddleButton) ? 4 : 0));
}

MouseInput MouseInputOf(const QMouseEvent& event) {
    const bool moves = event.type() == QEvent::MouseMove;
    return {ButtonsOf(moves ? event.buttons() : event.button()), ShiftOf(event.modifiers()),
            static_cast<float>(event.position().x()), static_cast<float>(event.position().y())};
}

void TellWheel(VmCalendar& calendar, QWheelEvent& event) {
    event.setAccepted(calendar.OnWheel(event.angleDelta().y(), ShiftOf(event.modifiers())));
}

bool ShowDayToolTip(QWidget& widget, VmCalendar& calendar, const VmDateWidget& texts,
                    const QHelpEvent& event) {
    const auto day = calendar.DateFromPoint(static_cast<float>(event.pos().x()),
                                            static_cast<float>(event.pos().y()));
    const QString text = day ? texts.dayToolTip(ToQDate(*day)) : QString();
    const auto cell = text.isEmpty() ? std::nullopt : calendar.Describe(*day);
    if (!cell) return false;
    const Rect& place = cell->place;
    QToolTip::showText(event.globalPos(), text, &widget,
                       {place.left, place.top, place.Width(), place.Height()});
    return true;
}

}  // namespace velmora
