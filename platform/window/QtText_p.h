// The toolkit's text and the program's byte text.
#pragma once

#include <QString>

#include <string>
#include <string_view>

class QHelpEvent;
class QWidget;

QString Utf8Text(std::string_view utf8);
QString ToolkitText(std::string_view bytes);
std::string ByteText(const QString& text);

// A caption without the marks of its mnemonic.
QString WithoutMnemonic(const QString& caption);

// What one line of a list or a caption shows of a text of anybody's making: cut to what fits any screen, with blanks
// for line ends, tabs and control characters.
QString OneLine(const QString& text);

// Shows the whole text as a tool tip, as plain text; hides the tip if the text is empty.
void ShowToolTip(const QHelpEvent& event, const QString& text, QWidget* widget);
