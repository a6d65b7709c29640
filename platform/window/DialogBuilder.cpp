#include "platform/window/DialogBuilder_p.h"

#include "platform/text/CodePage.h"
#include "platform/window/DialogUnits_p.h"
#include "platform/window/widgets/ControlWidgets_p.h"
#include "platform/window/widgets/DialogWidget_p.h"
#include "platform/window/widgets/LinkWidget_p.h"
#include "platform/window/widgets/ListBoxWidget_p.h"
#include "platform/window/widgets/ListWidget_p.h"
#include "platform/window/widgets/PushButtonWidget_p.h"
#include "platform/window/widgets/TabWidget_p.h"

#include <QButtonGroup>

#include <algorithm>

namespace
{

class DialogBuilder
{
public:
    // Controls come on `record`'s window; the first one comes behind `before` in Tab order, if there is such.
    DialogBuilder(const DialogTemplate& dialog, const std::shared_ptr<WindowRecord>& record, QWidget* before = nullptr)
        : m_template(dialog), m_dialog(&record->Peer()->Widget()), m_record(record), m_units(m_dialog->fontMetrics()),
          m_lastTabStop(before)
    {}

    void AddControls();

private:
    void AddControl(const ControlTemplate& control);
    WindowPeer* MakePeer(const ControlTemplate& control);
    WindowPeer* MakeButton(const ControlTemplate& control);
    WindowPeer* MakeRadioButton();
    WindowPeer* MakeEdit(const ControlTemplate& control);
    WindowPeer* MakeLabel(const ControlTemplate& control);
    WindowPeer* MakeGroupBox();
    WindowPeer* MakePicture(const ControlTemplate& control);
    void SetName(QWidget& widget, const ControlTemplate& control);
    void JoinTabOrder(QWidget& widget, const ControlTemplate& control);
    void WarnIfCut(const QWidget& widget, const ControlTemplate& control) const;

    const DialogTemplate& m_template;
    QWidget* m_dialog;
    std::shared_ptr<WindowRecord> m_record;
    const DialogUnits m_units;
    QButtonGroup* m_radioGroup = nullptr; // of the radio buttons that follow each other
    LabelWidget* m_label = nullptr;       // whose mnemonic has no control yet
    std::string_view m_labelBefore;       // the text of the last label
    QWidget* m_lastTabStop;
};

void DialogBuilder::AddControls()
{
    for (const ControlTemplate& control : m_template.controls)
        AddControl(control);
    m_record->Show();
}

void DialogBuilder::AddControl(const ControlTemplate& control)
{
    if (control.kind != ControlClass::RadioButton)
        m_radioGroup = nullptr;
    WindowPeer* peer = MakePeer(control);
    QWidget& widget = peer->Widget();
    const auto record = WindowRecord::Make(*peer, m_record, control.id, Utf8ToAnsi(control.text));
    if (control.kind == ControlClass::ProgressBar)
        record->EnableProgress();
    widget.setObjectName(QString::number(control.id));
    widget.setGeometry(m_units.Rect(control.x, control.y, control.width, control.height));
    widget.setEnabled(!(control.style & CS_DISABLED));
    widget.setVisible(!(control.style & CS_HIDDEN));
    SetName(widget, control);
    JoinTabOrder(widget, control);
    record->Show();
    WarnIfCut(widget, control);
}

WindowPeer* DialogBuilder::MakePeer(const ControlTemplate& control)
{
    switch (control.kind)
    {
    case ControlClass::Picture:
        return MakePicture(control);
    case ControlClass::Button:
        return MakeButton(control);
    case ControlClass::CheckBox:
        return new ButtonWidget<QCheckBox>(m_dialog);
    case ControlClass::RadioButton:
        return MakeRadioButton();
    case ControlClass::Edit:
        return MakeEdit(control);
    case ControlClass::ListView:
        return new ListWidget(m_dialog);
    case ControlClass::ListBox:
        return new ListBoxWidget(m_dialog);
    case ControlClass::ProgressBar:
        return new ProgressWidget(m_dialog);
    case ControlClass::GroupBox:
        return MakeGroupBox();
    case ControlClass::TabControl:
        return new TabWidget(m_dialog);
    case ControlClass::Label:
        break;
    }
    return MakeLabel(control);
}

WindowPeer* DialogBuilder::MakeButton(const ControlTemplate& control)
{
    auto* button = new PushButtonWidget(m_dialog);
    button->setDefault(control.style & CS_DEFAULT);
    return button;
}

WindowPeer* DialogBuilder::MakeRadioButton()
{
    auto* button = new ButtonWidget<QRadioButton>(m_dialog);
    if (!m_radioGroup)
        m_radioGroup = new QButtonGroup(m_dialog);
    m_radioGroup->addButton(button);
    return button;
}

WindowPeer* DialogBuilder::MakeEdit(const ControlTemplate& control)
{
    auto* edit = new EditWidget(control.style & CS_NUMBER, m_dialog);
    edit->setReadOnly(control.style & CS_READONLY);
    return edit;
}

WindowPeer* DialogBuilder::MakeLabel(const ControlTemplate& control)
{
    if (control.style & CS_NOTIFY)
        return new LinkWidget(m_dialog);
    constexpr int kTwoLines = 16;
    auto* label = new LabelWidget(m_dialog);
    label->setWordWrap(control.height >= kTwoLines);
    if (control.text.find('&') != std::string_view::npos)
        m_label = label;
    m_labelBefore = control.text;
    return label;
}

WindowPeer* DialogBuilder::MakeGroupBox()
{
    auto* box = new GroupBoxWidget(m_dialog);
    // It frames its neighbours, which must get the mouse first.
    box->lower();
    return box;
}

WindowPeer* DialogBuilder::MakePicture(const ControlTemplate& control)
{
    // A banner has no margins left and right, whatever the font makes of the dialog's proportions.
    const bool banner = control.x <= 0 && control.x + control.width >= m_template.width;
    return new PictureWidget(control.picture, banner, m_dialog);
}

void DialogBuilder::SetName(QWidget& widget, const ControlTemplate& control)
{
    // Where it is left to the toolkit, the name is the caption without its mnemonic and follows changes of it.
    const bool captioned = control.kind != ControlClass::Edit && control.kind != ControlClass::ListView &&
                           control.kind != ControlClass::ListBox && control.kind != ControlClass::ProgressBar;
    if (!control.accessibleName.empty())
        widget.setAccessibleName(Utf8Text(control.accessibleName));
    else if (!captioned)
        widget.setAccessibleName(WithoutMnemonic(Utf8Text(m_labelBefore)));
}

void DialogBuilder::JoinTabOrder(QWidget& widget, const ControlTemplate& control)
{
    if (control.style & CS_NOTAB)
        widget.setFocusPolicy(static_cast<Qt::FocusPolicy>(widget.focusPolicy() & ~Qt::TabFocus));
    if (widget.focusPolicy() == Qt::NoFocus)
        return;
    if (m_lastTabStop)
        QWidget::setTabOrder(m_lastTabStop, &widget);
    m_lastTabStop = &widget;
    if (auto* label = std::exchange(m_label, nullptr))
        label->setBuddy(&widget);
}

void DialogBuilder::WarnIfCut([[maybe_unused]] const QWidget& widget,
                              [[maybe_unused]] const ControlTemplate& control) const
{
#ifndef NDEBUG
    constexpr int kButtonMargin = 4;
    const bool button = control.kind == ControlClass::Button;
    if (control.text.empty() || (!button && control.kind != ControlClass::Label))
        return;
    const QString text = WithoutMnemonic(Utf8Text(control.text));
    const QRect room = widget.rect().adjusted(button ? kButtonMargin : 0, 0, button ? -kButtonMargin : 0, 0);
    const QRect needed = widget.fontMetrics().boundingRect(room, Qt::TextWordWrap, text);
    if (needed.width() > room.width() || needed.height() > room.height())
        qWarning("dialog %d: \"%s\" does not fit into its control", m_template.id, qUtf8Printable(text));
#endif
}

} // namespace

const DialogTemplate* FindDialogTemplate(int templateId)
{
    const ResourceTable* resources = AfxGetResources();
    if (!resources)
        return nullptr;
    const auto dialog = std::ranges::find(resources->dialogs, templateId, &DialogTemplate::id);
    return dialog == resources->dialogs.end() ? nullptr : &*dialog;
}

std::shared_ptr<WindowRecord> BuildDialog(const DialogTemplate& dialog, const std::shared_ptr<WindowRecord>& parent)
{
    auto* widget = new DialogWidget(dialog, parent ? parent->Peer()->Widget().window() : nullptr);
    const QPoint corner = DialogUnits(widget->fontMetrics()).Point(dialog.width, dialog.height);
    widget->setFixedSize(corner.x(), corner.y());
    const auto record = WindowRecord::Make(*widget, parent, 0, Utf8ToAnsi(dialog.caption));
    DialogBuilder(dialog, record).AddControls();
    return record;
}

std::shared_ptr<WindowRecord> BuildPage(const DialogTemplate& page, const std::shared_ptr<WindowRecord>& sheet,
                                        const QRect& area, QWidget* before)
{
    auto* widget = new PageWidget(page, &sheet->Peer()->ClientArea());
    widget->hide();
    widget->setGeometry(area);
    const auto record = WindowRecord::Make(*widget, sheet, 0, Utf8ToAnsi(page.caption));
    DialogBuilder(page, record, before).AddControls();
    return record;
}
