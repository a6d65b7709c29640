// What a user would call a broken layout: cut texts, and controls outside their window or on one another.
#include "platform/testing/Robot_p.h"
#include "platform/window/widgets/DrawnWidget_p.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStyleOptionGroupBox>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeView>

namespace
{

using Controls = std::vector<const QWidget*>;

bool IsControl(const QWidget* widget)
{
    return widget->inherits("QAbstractButton") || widget->inherits("QLabel") || widget->inherits("QLineEdit") ||
           widget->inherits("QProgressBar") || widget->inherits("QAbstractScrollArea") || widget->inherits("QGroupBox");
}

// The shown controls below a window, and what holds controls itself.
void Collect(const QWidget* parent, Controls& controls)
{
    for (const QObject* object : parent->children())
    {
        const auto* widget = qobject_cast<const QWidget*>(object);
        if (!widget || widget->isWindow() || !widget->isVisible())
            continue;
        controls.push_back(widget);
        if (!IsControl(widget) || qobject_cast<const QGroupBox*>(widget))
            Collect(widget, controls);
    }
}

std::string Name(const QWidget* control)
{
    const QString name = RobotEyes::NameOf(control);
    const std::string kind = control->metaObject()->className();
    return name.isEmpty() ? kind : kind + " \"" + name.toStdString() + '"';
}

// The part of a button that its caption may fill.
QSize CaptionRoom(const QAbstractButton* button)
{
    QStyleOptionButton option;
    option.initFrom(button);
    const auto part = qobject_cast<const QCheckBox*>(button)      ? QStyle::SE_CheckBoxContents
                      : qobject_cast<const QRadioButton*>(button) ? QStyle::SE_RadioButtonContents
                                                                  : QStyle::SE_PushButtonContents;
    return button->style()->subElementRect(part, &option, button).size();
}

QSize LabelNeed(const QLabel* label)
{
    const int width = label->contentsRect().width();
    const int flags = label->wordWrap() ? Qt::TextWordWrap : 0;
    const QString text = RobotEyes::TextOf(label);
    return label->fontMetrics().boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX), flags, text).size();
}

bool Fits(const QSize& need, const QSize& room)
{
    return need.width() <= room.width() && need.height() <= room.height();
}

// The title stands in the frame, inset by the style.
bool TitleFits(const QGroupBox* box)
{
    QStyleOptionGroupBox option;
    option.initFrom(box);
    option.text = RobotEyes::PlainCaption(box->title());
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    const QRect title = box->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, box);
    return box->fontMetrics().horizontalAdvance(option.text) <= title.width() && box->rect().contains(title);
}

bool TextFits(const QWidget* control)
{
    // Its text is for assistive technology alone.
    if (const auto* picture = qobject_cast<const QToolButton*>(control);
        picture && picture->toolButtonStyle() == Qt::ToolButtonIconOnly)
        return Fits(picture->iconSize(), picture->size());
    if (const auto* button = qobject_cast<const QAbstractButton*>(control))
        return Fits(button->fontMetrics().size(Qt::TextShowMnemonic, button->text()), CaptionRoom(button));
    if (const auto* label = qobject_cast<const QLabel*>(control); label && !label->text().isEmpty())
        return Fits(LabelNeed(label), label->contentsRect().size());
    if (const auto* box = qobject_cast<const QGroupBox*>(control))
        return TitleFits(box);
    if (const auto* edit = qobject_cast<const QLineEdit*>(control))
        return edit->fontMetrics().height() <= edit->contentsRect().height();
    return true;
}

std::string CaptionFaults(const QWidget* control)
{
    const auto* list = qobject_cast<const QTreeView*>(control);
    if (!list || list->isHeaderHidden())
        return {};
    std::string faults;
    for (int column = 0; column < list->header()->count(); ++column)
        if (list->header()->sectionSize(column) < list->header()->sectionSizeHint(column))
            faults += "The caption of column " + std::to_string(column) + " of " + Name(control) + " does not fit.\n";
    return faults;
}

bool Overlap(const QWidget* one, const QWidget* other)
{
    return one->parentWidget() == other->parentWidget() && one->geometry().intersects(other->geometry());
}

// A group box, the tabs of a sheet and a window that the program draws frame controls that are their siblings: those
// may lie inside, though not on the edge.
bool Frames(const QWidget* box, const QWidget* control)
{
    const bool frame = qobject_cast<const QGroupBox*>(box) || qobject_cast<const QTabWidget*>(box) ||
                       dynamic_cast<const DrawnWidget*>(box);
    return frame && box->geometry().contains(control->geometry());
}

std::string OverlapFaults(const Controls& controls, std::size_t index)
{
    std::string faults;
    for (std::size_t other = index + 1; other < controls.size(); ++other)
        if (Overlap(controls[index], controls[other]) && !Frames(controls[index], controls[other]) &&
            !Frames(controls[other], controls[index]))
            faults += Name(controls[index]) + " and " + Name(controls[other]) + " overlap.\n";
    return faults;
}

std::string FaultsOf(const QWidget* window)
{
    Controls controls;
    Collect(window, controls);
    std::string faults;
    for (std::size_t index = 0; index < controls.size(); ++index)
    {
        const QWidget* control = controls[index];
        if (!control->parentWidget()->rect().contains(control->geometry()))
            faults += Name(control) + " lies outside its window.\n";
        if (!TextFits(control))
            faults += "The text of " + Name(control) + " does not fit.\n";
        faults += CaptionFaults(control) + OverlapFaults(controls, index);
    }
    return faults;
}

} // namespace

std::string Robot::LayoutFaults(const std::string& window) const
{
    return RobotStage::Await<std::string>(m_deadline, [&] { return FaultsOf(RobotEyes::WindowNamed(window)); });
}
