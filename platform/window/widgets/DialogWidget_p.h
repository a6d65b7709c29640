// The widget of a dialog: turns what the toolkit tells it into messages.
#pragma once

#include "platform/window/Resource.h"
#include "platform/window/TopLevelPeer_p.h"

#include <QDialog>

// Puts the focus on the first control of a dialog or a page, in Tab order, that can take it.
void FocusFirstControl(const QWidget& surface);

class DialogWidget : public QDialog, public TopLevelPeer
{
public:
    DialogWidget(const DialogTemplate& dialog, QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }

protected:
    void closeEvent(QCloseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void PressCancel();
    void PressDefaultButton();
};

// A page of a property sheet. It covers what is drawn below it, and leaves Enter and Esc to the sheet.
class PageWidget : public QWidget, public WindowPeer
{
public:
    PageWidget(const DialogTemplate& dialog, QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    // A name for assistive technology: it shows no text of its own.
    void ShowText(const QString& text) override;
};
