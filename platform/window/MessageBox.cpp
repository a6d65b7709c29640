#include "platform/window/MessageBox_p.h"

#include "platform/text/CodePage.h"
#include "platform/window/Calls.h"
#include "platform/window/Desktop_p.h"
#include "platform/window/ModalWait_p.h"
#include "platform/window/QtText_p.h"
#include "platform/window/Resource.h"
#include "platform/window/TopLevelPeer_p.h"
#include "platform/window/WinApp.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"
#include "platform/window/console/ConsoleDesktop_p.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace
{

constexpr UINT kButtonMask = 0x0F;
constexpr UINT kIconMask = 0xF0;

struct BoxButton
{
    int answer;
    QMessageBox::StandardButton button;
    const char* text; // set by us: the desktop's theme would translate it into a language the rest does not speak
};

constexpr BoxButton kOk{IDOK, QMessageBox::Ok, "&OK"};
constexpr BoxButton kCancel{IDCANCEL, QMessageBox::Cancel, "&Cancel"};
constexpr BoxButton kYes{IDYES, QMessageBox::Yes, "&Yes"};
constexpr BoxButton kNo{IDNO, QMessageBox::No, "&No"};

// The last button is what Esc answers.
std::vector<BoxButton> ButtonsOf(UINT type)
{
    switch (type & kButtonMask)
    {
    case MB_OKCANCEL:
        return {kOk, kCancel};
    case MB_YESNO:
        return {kYes, kNo};
    default:
        return {kOk};
    }
}

QMessageBox::Icon IconOf(UINT type)
{
    switch (type & kIconMask)
    {
    case MB_ICONERROR:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONEXCLAMATION:
        return QMessageBox::Warning;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

QWidget* VisibleMainWindow()
{
    const CWnd* main = AfxGetMainWnd();
    const auto record = main ? WindowTable::Get().Find(main->m_hWnd) : nullptr;
    QWidget* widget = record ? &record->Peer()->Widget() : nullptr;
    return widget && widget->isVisible() ? widget : nullptr;
}

// The window that a box without an owner belongs over. A box never hangs on another box, which goes before it.
QWidget* ActiveWindow()
{
    QWidget* window = QApplication::activeWindow();
    if (!window)
        window = QApplication::activeModalWidget();
    while (window && qobject_cast<QMessageBox*>(window))
        window = window->parentWidget();
    return window ? window : VisibleMainWindow();
}

QWidget* OwnerOf(HWND owner)
{
    const auto record = WindowTable::Get().Find(owner);
    QWidget* window = record ? record->Peer()->Widget().window() : nullptr;
    while (window && !window->isVisible())
        window = window->parentWidget();
    return window ? window : ActiveWindow();
}

void AddButtons(QMessageBox& box, const std::vector<BoxButton>& buttons)
{
    for (const BoxButton& button : buttons)
        box.addButton(button.button)->setText(QString::fromLatin1(button.text));
    box.setDefaultButton(buttons.front().button);
    box.setEscapeButton(buttons.back().button);
}

int AnswerOf(const std::vector<BoxButton>& buttons, int pressed)
{
    for (const BoxButton& button : buttons)
    {
        if (button.button == pressed)
            return button.answer;
    }
    return buttons.back().answer;
}

// Shows the box without waiting. `wait` ends with its answer, also when the box goes with its owner.
void OpenBox(HWND owner, const std::string& text, const std::string& caption, UINT type,
             const std::shared_ptr<ModalWait>& wait)
{
    const std::vector<BoxButton> buttons = ButtonsOf(type);
    QWidget* above = OwnerOf(owner);
    auto* box = new QMessageBox(IconOf(type), ToolkitText(caption), ToolkitText(text), QMessageBox::NoButton, above);
    box->setTextFormat(Qt::PlainText);
    AddButtons(*box, buttons);
    QObject::connect(box, &QDialog::finished, box, [=](int pressed) {
        if (above && above->isVisible())
            above->activateWindow();
        wait->End(AnswerOf(buttons, pressed));
        box->deleteLater();
    });
    QObject::connect(box, &QObject::destroyed, [=] { wait->End(buttons.back().answer); });
    HangOnFrontWindow(*box);
    box->open();
}

} // namespace

int ShowMessageBox(HWND owner, const std::string& text, const std::string& caption, UINT type)
{
    if (ConsoleDesktop* console = ConsoleDesktop::Current())
        return console->AnswerBox(text, type & kButtonMask);
    const auto wait = std::make_shared<ModalWait>();
    const auto open = [&] {
        if (owner && !IsWindow(owner))
            wait->End(0);
        else
            OpenBox(owner, text, caption, type, wait);
    };
    if (!RunOnDesktop(open))
        return ButtonsOf(type).back().answer;
    return wait->WaitForEnd();
}

void DismissMessageBoxes(const QWidget* over)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
    {
        auto* box = qobject_cast<QMessageBox*>(widget);
        if (box && box->isVisible() && (!over || box->parentWidget() == over))
            box->close();
    }
}

std::string ApplicationName()
{
    const ResourceTable* resources = AfxGetResources();
    return resources ? Utf8ToAnsi(resources->applicationName) : std::string();
}

int MessageBoxA(HWND owner, const char* text, const char* caption, UINT type)
{
    return ShowMessageBox(owner, text ? text : "", caption ? caption : "Error", type);
}

BOOL MessageBeep(UINT)
{
    return !ConsoleDesktop::Current() && RunOnDesktop(&QApplication::beep);
}

int AfxMessageBox(const std::string& text, UINT type)
{
    return ShowMessageBox({}, text, ApplicationName(), type);
}
