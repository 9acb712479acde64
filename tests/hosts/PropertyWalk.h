#pragma once

#include "tests/support/PropertyTable.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QMetaProperty>
#include <QPixmap>
#include <QSignalSpy>

#include <cmath>
#include <set>
#include <span>
#include <string>

namespace velmora {

/// What the controls have reported with qWarning.
inline std::vector<std::string> g_warnings;

/// As a property of Qt's.
inline QByteArray NameOf(const test::PropertyRow& row) {
    QByteArray name = QByteArray::fromStdString(std::string(row.name));
    name[0] = static_cast<char>(name[0] | 0x20);
    return name;
}

/// The table's numbers as Qt's values.
inline QVariant ValueOf(const test::PropertyRow& row, double number) {
    const auto whole = static_cast<int>(std::trunc(number));
    const QDate date = QDate::fromJulianDay(qint64{whole} + 2415019);  // day 0 is 30 December 1899
    switch (row.kind) {
        case test::Kind::Color: return QColor(whole & 255, whole >> 8 & 255, whole >> 16 & 255);
        case test::Kind::Flag: return number != 0;
        case test::Kind::Limit:
        case test::Kind::Day: return date;
        case test::Kind::Moment:
            return QDateTime(date, QTime::fromMSecsSinceStartOfDay(
                                       static_cast<int>(std::abs(number - whole) * 86400000)));
        case test::Kind::Format:
            return QString::fromStdString(
                std::string(test::kFormats[static_cast<unsigned>(whole)]));
        case test::Kind::Font: {
            QFont font("DejaVu Serif", -1, QFont::Bold, true);
            font.setPointSizeF(number);
            return font;
        }
        case test::Kind::Icon: return number == 0 ? QPixmap() : QPixmap(whole, whole);
        default: return whole;
    }
}

/// What it refuses of what Qt can hand to it.
inline std::vector<QVariant> RefusedValues(const test::PropertyRow& row, const QVariant& good) {
    std::vector<QVariant> values;
    if (row.kind != test::Kind::Color) {
        for (const double number : test::RefusedNumbers(row))
            values.push_back(ValueOf(row, number));
    }
    const int type = good.typeId();
    if (type == QMetaType::QColor || type == QMetaType::QDate || type == QMetaType::QDateTime) {
        values.push_back(QVariant(good.metaType()));
    }
    if (type == QMetaType::QColor) values.push_back(QColor(1, 2, 3, 254));
    if (row.kind == test::Kind::Pointer) values.push_back(65536 + 1);
    return values;
}

inline QVariant Read(const QMetaProperty& property, const QObject& widget) {
    const QVariant value = property.read(&widget);
    if (property.typeId() == QMetaType::QPixmap) return value.value<QPixmap>().width();
    return property.isEnumType() ? QVariant(value.toInt()) : value;
}

/// Each row's default, values, notifications and refusals. The class has no properties of its own
/// besides `others`.
template <class Widget>
void ExpectFollowsTheTable(std::span<const test::PropertyRow> rows, std::set<std::string> others) {
    const QMetaObject& meta = Widget::staticMetaObject;
    const std::string className = std::string(meta.className()).substr(sizeof("velmora::") - 1);
    std::set<std::string> own;
    for (int i = QWidget::staticMetaObject.propertyCount(); i < meta.propertyCount(); ++i) {
        own.insert(meta.property(i).name());
    }
    for (const test::PropertyRow& row : rows) {
        const std::string name = NameOf(row).toStdString();
        SCOPED_TRACE(name);
        own.erase(name);
        Widget widget;
        std::vector<std::string> changes;
        QObject::connect(&widget, &Widget::propertyChanged,
                         [&](const QString& key) { changes.push_back(key.toStdString()); });
        QObject::connect(&widget, &Widget::dateValueChanged, [&] { changes.push_back("signal"); });
        const QMetaProperty property = meta.property(meta.indexOfProperty(name.c_str()));
        QSignalSpy notified(&widget, property.notifySignal());
        const auto comparable = [&](double number) {
            const QVariant value = ValueOf(row, number);
            return row.kind == test::Kind::Icon ? QVariant(value.value<QPixmap>().width()) : value;
        };
        const bool system = row.kind == test::Kind::Color && row.initial > 0xFFFFFF;
        if (!system && row.initial != test::kToday && row.kind != test::Kind::Font) {
            EXPECT_EQ(Read(property, widget), comparable(row.initial));
        }
        g_warnings.clear();
        const QtMessageHandler before =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
                if (text.startsWith("VmCal")) g_warnings.push_back(text.toStdString());
            });
        const double high = row.kind == test::Kind::Color ? 0xFFFFFF : row.high;
        for (const double number : {row.low, high}) {
            property.write(&widget, ValueOf(row, number));
            EXPECT_EQ(Read(property, widget), comparable(number));
            std::vector<std::string> expected{name};
            if (row.initial == test::kToday) expected.insert(expected.begin(), "signal");
            EXPECT_EQ(std::exchange(changes, {}), expected);
        }
        EXPECT_EQ(notified.size(), name == "enabled" ? 0 : 2);  // Qt has none for that
        EXPECT_EQ(g_warnings, std::vector<std::string>());
        const auto refused = RefusedValues(row, ValueOf(row, high));
        for (const QVariant& value : refused) {
            property.write(&widget, value);
            EXPECT_EQ(Read(property, widget), comparable(high));
        }
        qInstallMessageHandler(before);
        EXPECT_EQ(changes, std::vector<std::string>());
        EXPECT_EQ(property.reset(&widget),
                  row.kind == test::Kind::Color || row.kind == test::Kind::Font);
        if (property.isResettable()) {
            widget.grab();  // takes the font that stands for none
            EXPECT_EQ(Read(property, widget), Read(property, Widget()));
            notified.clear();
            QFont font("DejaVu Serif", 20);
            widget.setFont(font);
            EXPECT_TRUE(row.kind != test::Kind::Font || Read(property, widget) == font);
            QPalette palette(Qt::darkRed, Qt::darkBlue);
            palette.setColor(QPalette::Highlight, Qt::darkRed);
            palette.setColor(QPalette::HighlightedText, Qt::darkBlue);
            widget.setPalette(palette);
            EXPECT_EQ(Read(property, widget) != Read(property, Widget()), notified.size() > 0);
        }
        const std::size_t silent = row.kind == test::Kind::Pointer ? refused.size() : 0;
        EXPECT_EQ(g_warnings.size(), refused.size() - silent);
        for (const std::string& text : g_warnings) {
            EXPECT_EQ(text.find(className + ": " + name + ": "), 0u) << text;
        }
    }
    EXPECT_EQ(own, others);
}

}  // namespace velmora
