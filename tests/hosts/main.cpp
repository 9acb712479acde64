#include <gtest/gtest.h>

#include <QApplication>
#include <QTranslator>

namespace {

/// Leaves all texts in English, and fails a test that shows one of the library's which is not in
/// the catalogues of other languages.
class CompleteTexts final : public QTranslator {
public:
    CompleteTexts() {
        for (int i = 0; i < kLanguages; ++i) {
            const QString name =
                QStringLiteral("velmora_calendar_%1").arg(QLatin1String(kCodes[i]));
            EXPECT_TRUE(m_catalogues[i].load(name, QStringLiteral(VELMORA_TRANSLATIONS)));
        }
    }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override {
        if (qstrcmp(context, "VelmoraCalendar") != 0) return {};
        for (int i = 0; i < kLanguages; ++i) {
            EXPECT_FALSE(m_catalogues[i].translate(context, text).isEmpty())
                << kCodes[i] << ": " << text;
        }
        return {};
    }

private:
    static constexpr int kLanguages = 3;
    static constexpr const char* kCodes[kLanguages] = {"de", "fr", "ar"};
    QTranslator m_catalogues[kLanguages];
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    CompleteTexts texts;
    QApplication::installTranslator(&texts);
    return RUN_ALL_TESTS();
}
