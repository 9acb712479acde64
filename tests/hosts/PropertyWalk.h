#pragma once

#include <gtest/gtest.h>

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QMetaEnum>
#include <QMetaProperty>

#include <string>
#include <vector>

namespace velmora {

/// Collects what a class reports with qWarning.
class Warnings {
public:
    explicit Warnings(const std::string& className) : m_before(qInstallMessageHandler(Take)) {
        Start() = className + ": ";
        Texts().clear();
    }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;
    ~Warnings() { qInstallMessageHandler(m_before); }

    static std::vector<std::string>& Texts() {
        static std::vector<std::string> texts;
        return texts;
    }

private:
    static std::string& Start() {
        static std::string start;
        return start;
    }
    static void Take(QtMsgType, const QMessageLogContext&, const QString& text) {
        if (text.startsWith(Start().c_str())) Texts().push_back(text.toStdString());
    }

    QtMessageHandler m_before;
};

/// Values that a property takes, and values that it refuses.
struct Samples {
    std::vector<QVariant> good;
    std::vector<QVariant> bad;
};

inline Samples SamplesOf(const QMetaProperty& property) {
    if (property.isEnumType()) {
        const QMetaEnum keys = property.enumerator();
        Samples samples;
        for (int i = 0; i < keys.keyCount(); ++i) samples.good.push_back(keys.value(i));
        samples.bad = {keys.value(0) - 1, keys.value(keys.keyCount() - 1) + 1};
        return samples;
    }
    const std::string name = property.name();
    const QDate first(1752, 9, 1), last(2500, 2, 28), between(1899, 12, 29);
    switch (property.typeId()) {
        case QMetaType::QColor: return {{QColor(1, 2, 3), QColor(Qt::red)}, {QColor()}};
        case QMetaType::QFont: return {{QFont("DejaVu Serif", 13, QFont::Bold, true)}, {}};
        case QMetaType::QString: return {{"yyyy", "", "Long Date"}, {}};
        case QMetaType::Bool: return {{false, true}, {}};
        case QMetaType::Int:
            if (name == "mousePointer") return {{0, 15, 99}, {}};
            return {{0, 1, 300}, {-1}};
        case QMetaType::QDate:
            return {{name == "dateMax"   ? last
                     : name == "dateMin" ? first
                                         : between},
                    {QDate(), QDate(199, 12, 31), QDate(4601, 1, 1), QDate(4700000, 1, 1)}};
        case QMetaType::QDateTime: return {{QDateTime(between, QTime(18, 0, 0, 1))}, {QDateTime()}};
        default: return {};
    }
}

/// Each property of the class itself, except one that has to be tried by hand.
template <class Widget>
void ExpectPropertiesReadBackOrRefuse(int count, const std::string& except = {}) {
    const QMetaObject& meta = Widget::staticMetaObject;
    const std::string className = std::string(meta.className()).substr(sizeof("velmora::") - 1);
    ASSERT_EQ(meta.propertyCount() - meta.propertyOffset(), count);
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        if (property.name() == except) continue;
        SCOPED_TRACE(property.name());
        Widget widget;
        const Samples samples = SamplesOf(property);
        EXPECT_TRUE(!samples.good.empty() || property.typeId() == QMetaType::QPixmap);
        const Warnings warnings(className);
        const auto read = [&] {
            const QVariant value = property.read(&widget);
            return property.isEnumType() ? QVariant(value.toInt()) : value;
        };
        for (const QVariant& value : samples.good) {
            EXPECT_TRUE(property.write(&widget, value));
            EXPECT_EQ(read(), value);
        }
        EXPECT_TRUE(Warnings::Texts().empty());
        const QVariant kept = read();
        for (const QVariant& value : samples.bad) {
            property.write(&widget, value);
            EXPECT_EQ(read(), kept);
        }
        EXPECT_EQ(Warnings::Texts().size(), samples.bad.size());
        for (const std::string& text : Warnings::Texts()) {
            EXPECT_EQ(text.find(className + ": " + property.name() + ": "), 0u);
        }
    }
}

}  // namespace velmora
