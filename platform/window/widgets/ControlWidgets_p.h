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
#include <QValidator>

// What is common to the buttons: BM_CLICK in, WM_COMMAND out.
template <class Button>
class ButtonWidget : public Button, public WindowPeer
{
public:
    explicit ButtonWidget(QWidget* parent) : Button(parent)
    {
        QObject::connect(this, &QAbstractButton::clicked, this, [this] { m_record->NotifyCommand(BN_CLICKED); });
    }

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString& text) override
    {
        this->setText(text);
    }
    LRESULT Default(UINT message, WPARAM wParam, LPARAM) override
    {
        if (message == BM_CLICK)
            this->click();
        else if (message == BM_SETCHECK)
            this->setChecked(wParam == BST_CHECKED);
        return message == BM_GETCHECK && this->isChecked() ? BST_CHECKED : 0;
    }
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

// What a user may type: digits alone, or no more than so many characters. A text that is too long to begin with may
// become shorter.
class EditRules : public QValidator
{
public:
    using QValidator::QValidator;

    bool m_bDigits = false;
    qsizetype m_nLimit = 0;  // 0 is none
    qsizetype m_nLength = 0; // of the text in the edit

    // Takes from the end of what is being inserted what has no room.
    State validate(QString& text, int& cursor) const override;
};

class EditWidget : public QLineEdit, public WindowPeer
{
public:
    EditWidget(bool digits, QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString& text) override;
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    bool event(QEvent* event) override;

private:
    EditRules m_rules;
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
