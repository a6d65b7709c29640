#include "platform/window/QtText_p.h"

#include "platform/text/CodePage.h"

#include <QHelpEvent>
#include <QToolTip>

namespace
{

// A tip of a hostile page's making must not fill the screen or the memory.
constexpr qsizetype kLongestTip = 2000;
constexpr qsizetype kLongestLine = 120;

// Rich text, because only that is wrapped; paths and addresses get places to wrap at.
QString AsTip(const QString& text)
{
    QString tip;
    for (const QChar c : text.left(kLongestTip).toHtmlEscaped())
    {
        tip += c;
        if (c == u'/' || c == u';' || c == u'=' || c == u'_' || c == u'-' || c == u'%')
            tip += QChar(0x200B);
    }
    const bool oneLine = text.size() <= kLongestLine;
    return (oneLine ? QStringLiteral("<p style='white-space:pre'>") : QStringLiteral("<p>")) + tip +
           QStringLiteral("</p>");
}

} // namespace

QString Utf8Text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString ToolkitText(std::string_view bytes)
{
    return Utf8Text(AnsiToUtf8(bytes));
}

std::string ByteText(const QString& text)
{
    return Utf8ToAnsi(text.toUtf8().toStdString());
}

QString WithoutMnemonic(const QString& caption)
{
    QString plain;
    for (qsizetype i = 0; i < caption.size(); ++i)
    {
        if (caption[i] == u'&' && ++i == caption.size())
            break;
        plain += caption[i];
    }
    return plain;
}

QString OneLine(const QString& text)
{
    constexpr qsizetype kLongest = 1000;
    QString line = text.left(kLongest);
    for (QChar& c : line)
    {
        const QChar::Category category = c.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            c = u' ';
    }
    return line;
}

void ShowToolTip(const QHelpEvent& event, const QString& text, QWidget* widget)
{
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event.globalPos(), AsTip(text), widget);
}
