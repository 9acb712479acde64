#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "VelmoraCalendar/VmCalendarWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "fuzz/FuzzCalendar.h"
#include "fuzz/QtSetup.h"
#include "hosts/qt/windows/QtDrag.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace velmora::fuzz {
namespace {

void Fill(QMimeData& content, ByteReader& bytes) {
    constexpr const char* kFormats[] = {"text/plain",    "text/plain;charset=utf-8",
                                        "text/uri-list", "application/x-qt-image",
                                        "image/png",     "text/html"};
    const int count = bytes.Take<std::uint8_t>() % 4;
    for (int i = 0; i < count; ++i) {
        const auto* const format = kFormats[bytes.Take<std::uint8_t>() % std::size(kFormats)];
        const std::string_view text = bytes.TakeText(bytes.Take<std::uint8_t>() * 2u);
        content.setData(QLatin1String(format),
                        QByteArray(text.data(), static_cast<qsizetype>(text.size())));
    }
}

/// Whatever a handler may ask of dropped data.
void Ask(const DataRef& data) {
    for (int format = -1; format <= 16; ++format) {
        const auto number = static_cast<std::int16_t>(format);
        if (data->GetData(number).Type() != VarType::Empty && !data->HasFormat(number)) {
            Fail("data of a format that is not there");
        }
    }
}

template <class Control>
void Live(QWidget& widget, Control& control, ByteReader& bytes) {
    widget.resize(220, 160);
    control.Events().OLEDragOver.Connect([](DataRef& data, auto&...) { Ask(data); });
    control.Events().OLEDragDrop.Connect([](DataRef& data, auto&...) { Ask(data); });
    const auto how = bytes.Take<std::uint8_t>();
    control.OLEDropMode(static_cast<VmOLEDropModeConstants>(how % 3));
    QMimeData content;
    Fill(content, bytes);
    const auto actions = static_cast<Qt::DropActions>(how / 4 % 8);
    const QPoint at(bytes.Take<std::uint8_t>(), bytes.Take<std::uint8_t>());
    QDragEnterEvent enter(at, actions, &content, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &enter);
    QDragMoveEvent move(at, actions, &content, Qt::LeftButton, Qt::ShiftModifier);
    QCoreApplication::sendEvent(&widget, &move);
    if (how >= 224) {
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(&widget, &leave);
    } else {
        QDropEvent drop(at, actions, &content, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &drop);
        if (drop.isAccepted() && !actions.testFlag(drop.dropAction())) {
            Fail("an effect that the source does not allow");
        }
    }
    const DayNumber day = DayOf(control.ToDate(control.DateValue()));
    if (day < DayOf(control.DateMin()) || day > DayOf(control.DateMax())) {
        Fail("a dropped date outside of the limits");
    }
}

}  // namespace
}  // namespace velmora::fuzz

/// Data of any format and content, dragged over a calendar and a date box and dropped there.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    fuzz::NeedApplication();
    fuzz::ByteReader bytes(data, size);
    VmCalendarWidget calendar;
    fuzz::Live(calendar, calendar.calendar(), bytes);
    VmCalDropDownWidget box;
    fuzz::Live(box, box.dropDownBox(), bytes);
    return 0;
}
