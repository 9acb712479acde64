#include "hosts/qt/windows/AboutBox.h"

#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/values/QtTranslation.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QSysInfo>
#include <QVBoxLayout>
#include <QWindow>

namespace velmora {
namespace {

bool StartSystemTool() {
    const QString tool = QStandardPaths::findExecutable(QStringLiteral("msinfo32"));
    return !tool.isEmpty() && QProcess::startDetached(tool, {});
}

QString SystemFacts() {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const QSize size = screen ? screen->size() : QSize();
    return Translated("System: %1\nKernel: %2 %3\nProcessor: %4\nQt: %5 (%6)\nScreen: %7 x %8")
        .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
             QSysInfo::currentCpuArchitecture(), QString::fromLatin1(qVersion()),
             QGuiApplication::platformName())
        .arg(size.width())
        .arg(size.height());
}

QLabel* AddLabel(QDialog& dialog, const QString& text) {
    auto* const label = new QLabel(text, &dialog);
    label->setTextInteractionFlags(Qt::TextBrowserInteraction);
    label->setOpenExternalLinks(true);
    dialog.layout()->addWidget(label);
    return label;
}

void Fill(QDialog& dialog, const AboutText& text) {
    const QString title = ToQString(text.title);
    const QString link = ToQString(text.webLink).toHtmlEscaped();
    dialog.setWindowTitle(Translated("About %1").arg(title));
    auto* const layout = new QVBoxLayout(&dialog);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    AddLabel(dialog, QStringLiteral("<b>%1</b>").arg(title.toHtmlEscaped()));
    AddLabel(dialog, Translated("Version %1").arg(ToQString(text.version)));
    AddLabel(dialog, QStringLiteral("<a href=\"%1\">%1</a>").arg(link));
    QLabel* const facts = AddLabel(dialog, {});
    facts->setObjectName(QStringLiteral("systemFacts"));
    facts->hide();

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok, &dialog);
    layout->addWidget(buttons);
    QPushButton* const information =
        buttons->addButton(Translated("System &Information"), QDialogButtonBox::ActionRole);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(information, &QPushButton::clicked, facts, [facts] {
        if (StartSystemTool()) return;
        facts->setText(SystemFacts());
        facts->show();
    });
}

}  // namespace

void ShowAbout(const AboutText& text, const QWidget& widget) {
    auto* const dialog = new QDialog;  // without a parent, as that would take it along
    dialog->setObjectName(QStringLiteral("aboutBox"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::ApplicationModal);
    Fill(*dialog, text);
    dialog->adjustSize();
    const QWidget* const window = widget.window();
    dialog->move(window->frameGeometry().center() - dialog->rect().center());
    dialog->winId();  // makes the native window, which can then stay above the other
    if (dialog->windowHandle()) dialog->windowHandle()->setTransientParent(window->windowHandle());
    dialog->show();
}

}  // namespace velmora
