// The widgets of all controls but the list.
#pragma once

#include "platform/window/QtText_p.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSvgRenderer>

// What is common to the buttons: BM_CLICK in, WM_COMMAND out.
template <class Button>
class ButtonWidget : public Button, public WindowPeer
{
public:
    explicit ButtonWidget(QWidget* parent) : Button(parent)
    {
        QObject::connect(this, &QAbstractButton::clicked, this, [this] { m_record->NotifyClicked(); });
    }

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString& text) override
    {
        this->setText(text);
    }
    LRESULT Default(UINT message, WPARAM, LPARAM) override
    {
        if (message == BM_CLICK)
            this->click();
        return 0;
    }
};

// Enter on the button that has the focus presses that one, and not the default button.
class PushButtonWidget : public ButtonWidget<QPushButton>
{
public:
    explicit PushButtonWidget(QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

class LabelWidget : public QLabel, public WindowPeer
{
public:
    explicit LabelWidget(QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString& text) override;

protected:
    bool event(QEvent* event) override;
};

class GroupBoxWidget : public QGroupBox, public WindowPeer
{
public:
    using QGroupBox::QGroupBox;

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString& text) override
    {
        setTitle(text);
    }
};

class EditWidget : public QLineEdit, public WindowPeer
{
public:
    explicit EditWidget(QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString& text) override;

protected:
    bool event(QEvent* event) override;

private:
    bool m_showing = false; // the text changes by the program, not by the user
};

class ProgressWidget : public QProgressBar, public WindowPeer
{
public:
    explicit ProgressWidget(QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString&) override
    {}
    void ShowProgress(const ProgressWords& words) override;
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) override;
};

class PictureWidget : public QWidget, public WindowPeer
{
public:
    // `cover`: fills its area and cuts off what stands over.
    PictureWidget(int picture, bool cover, QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString&) override
    {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::unique_ptr<QSvgRenderer> m_picture;
    bool m_cover;
};
