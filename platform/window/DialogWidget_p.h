// The widget of a dialog: turns what the toolkit tells it into messages.
#pragma once

#include "platform/window/Resource.h"
#include "platform/window/TopLevelPeer_p.h"

#include <QDialog>

class DialogWidget : public QDialog, public TopLevelPeer
{
public:
    DialogWidget(const DialogTemplate& dialog, QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    // Puts the focus on the first control in Tab order that can take it.
    void FocusFirstControl();

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
