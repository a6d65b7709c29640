#include "platform/window/CommandText_p.h"

#include "platform/window/QtText_p.h"
#include "platform/window/Resource.h"

CommandText LoadCommandText(UINT command)
{
    const QString text = ToolkitText(AfxLoadString(command));
    const QString prompt = text.section(u'\n', 0, 0);
    const QString tip = text.section(u'\n', 1, 1);
    return {prompt, tip.isEmpty() ? prompt : tip};
}
