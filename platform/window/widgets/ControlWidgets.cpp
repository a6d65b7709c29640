#include "platform/window/widgets/ControlWidgets_p.h"

#include "platform/window/Picture_p.h"
#include "platform/window/ProgressWords_p.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyleOptionFrame>

#include <algorithm>

namespace
{

// Shows the text as a tip if it is wider than the room it has.
bool TipIfCut(QEvent* event, const QString& text, int room, QWidget& widget)
{
    if (event->type() != QEvent::ToolTip)
        return false;
    const bool cut = widget.fontMetrics().horizontalAdvance(text) > room;
    ShowToolTip(*static_cast<QHelpEvent*>(event), cut ? text : QString(), &widget);
    return true;
}

} // namespace

LabelWidget::LabelWidget(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void LabelWidget::ShowText(const QString& text)
{
    setText(text);
    // A label that has a name of its own tells its text as well.
    if (!accessibleName().isEmpty())
        setAccessibleDescription(text);
}

bool LabelWidget::event(QEvent* event)
{
    if (!wordWrap() && TipIfCut(event, buddy() ? WithoutMnemonic(text()) : text(), contentsRect().width(), *this))
        return true;
    return QLabel::event(event);
}

QValidator::State EditRules::validate(QString& text, int& cursor) const
{
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    if (m_bDigits && !std::ranges::all_of(text, isDigit))
        return Invalid;
    const qsizetype over = text.size() - std::max(m_nLimit, m_nLength);
    if (m_nLimit == 0 || over <= 0)
        return Acceptable;
    if (over > cursor)
        return Invalid;
    cursor -= static_cast<int>(over);
    text.remove(cursor, over);
    return Acceptable;
}

EditWidget::EditWidget(bool digits, QWidget* parent) : QLineEdit(parent)
{
    m_rules.m_bDigits = digits;
    setValidator(&m_rules);
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_rules.m_nLength = text.size();
        if (m_showing)
            return;
        m_record->TextEdited(ByteText(text));
        m_record->NotifyCommand(EN_CHANGE);
    });
}

void EditWidget::ShowText(const QString& text)
{
    m_showing = true;
    m_rules.m_nLength = text.size();
    setText(text);
    m_showing = false;
    if (isReadOnly())
        setCursorPosition(0);
}

LRESULT EditWidget::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == EM_LIMITTEXT)
        m_rules.m_nLimit = static_cast<qsizetype>(wParam);
    else if (message == EM_SETSEL && lParam < 0)
        selectAll();
    else if (message == EM_SETSEL)
        setSelection(static_cast<int>(wParam), static_cast<int>(lParam) - static_cast<int>(wParam));
    return 0;
}

bool EditWidget::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QLineEdit::event(event);
    constexpr int kTextMargin = 2; // the toolkit's, on each side inside the contents
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect contents = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    return TipIfCut(event, text(), contents.width() - 2 * kTextMargin, *this);
}

ProgressWidget::ProgressWidget(QWidget* parent) : QProgressBar(parent)
{
    // The toolkit's bar counts in signed numbers and shows an empty range as "busy": it gets steps instead.
    setRange(0, ProgressWords::kSteps);
    setValue(0);
    setTextVisible(false);
}

void ProgressWidget::ShowProgress(const ProgressWords& words)
{
    setValue(words.Step());
}

LRESULT ProgressWidget::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ProgressWords::Understands(message) ? m_record->AnswerProgress(message, wParam, lParam) : 0;
}

PictureWidget::PictureWidget(int picture, bool cover, QWidget* parent)
    : QWidget(parent), m_picture(LoadPicture(picture)), m_cover(cover)
{}

void PictureWidget::paintEvent(QPaintEvent*)
{
    if (!m_picture)
        return;
    QPainter painter(this);
    DrawPicture(painter, *m_picture, rect(), m_cover);
}
