// Reads and presses what a user of the running windows sees, off-screen or on.
//
// A test runs its script on a thread of its own (RunScript) while the main thread serves messages in the dialog under
// test. Every operation is carried to the user-interface thread and works through mouse and keyboard events, so a
// disabled, hidden or covered control cannot be pressed. Operations wait, polling, until what they name is on show;
// after the deadline they throw RobotError, whose text says what was on show instead.
#pragma once

#include "platform/Types.h"
#include "platform/window/Handle.h"

#include <chrono>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

class RobotError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class Robot
{
public:
    using Milliseconds = std::chrono::milliseconds;

    explicit Robot(Milliseconds deadline = Milliseconds(10000)) : m_deadline(deadline)
    {}

    // Windows on show, by title (message boxes too); waiting for one to come or to go.
    std::vector<std::string> Windows() const;
    void WaitForWindow(const std::string& title) const;
    void WaitForNoWindow(const std::string& title) const;
    void WaitUntil(const std::function<bool()>& condition,
                   const std::string& what) const; // condition runs on the script's thread
    // Whether something stays false for a while: for what must not happen.
    bool StaysFalse(const std::function<bool()>& condition, Milliseconds time) const;

    // Controls are named as a user reads them: the caption with or without its "&", or the accessible name. The window
    // is named by its title; empty is the active or topmost one.
    void Press(const std::string& control, const std::string& window = {}) const; // mouse click on a button or a box
    bool IsEnabled(const std::string& control, const std::string& window = {}) const;
    bool IsShown(const std::string& control, const std::string& window = {}) const;     // does not wait
    std::string Text(const std::string& control, const std::string& window = {}) const; // caption, edit text or label
    int ProgressPercent(const std::string& window = {}) const;                          // of the one progress bar
    std::string FocusName() const;                    // accessible name of the control with the focus
    std::string MessageBoxText() const;               // of the message box on show
    void Answer(const std::string& button) const;     // presses "OK", "Yes", "No" in the message box on show
    void CloseWindow(const std::string& title) const; // its close box

    // Keys to the active window as a user presses them, "Alt+D", "Tab", "Shift+Tab", "Esc", "Return", "Space", "Menu".
    void Key(const std::string& keys) const;

    // Moves the mouse over a control, its middle, and tells what shows of it: whether the pointer is a hand there, and
    // its pixels as 0x00BBGGRR, row after row, at a scale of 100 %.
    void PointAt(const std::string& control, const std::string& window = {}) const;
    bool HasHand(const std::string& control, const std::string& window = {}) const;
    std::vector<std::vector<DWORD>> Pixels(const std::string& control, const std::string& window = {}) const;

    // Clicks an edit and types over what stands there; the text in ASCII.
    void Type(const std::string& control, const std::string& text, const std::string& window = {}) const;
    bool IsChecked(const std::string& control, const std::string& window = {}) const; // a box or a radio button

    // The one list of the window, with columns or without.
    int RowCount(const std::string& window = {}) const;
    std::vector<std::string> Columns(const std::string& window = {}) const;
    std::string Cell(int row, int column, const std::string& window = {}) const;
    std::string ListHint(const std::string& window = {}) const; // what stands in place of rows
    bool IsTicked(int row, const std::string& window = {}) const;
    void Tick(int row, const std::string& window = {}) const;                // mouse click on the box: turns it over
    void RightClickList(int row = -1, const std::string& window = {}) const; // -1: below the last row
    void DoubleClickRow(int row, const std::string& window = {}) const;
    // A mouse click, with Ctrl to `add` the row to those that are selected, or take it off them.
    void ClickRow(int row, bool add = false, const std::string& window = {}) const;

    // The one tree of the window. A node is named by the texts on the way from the top to it.
    using NodePath = std::vector<std::string>;
    std::vector<std::string> TreeNodes(const std::string& window = {}) const; // those on show, two blanks for a level
    std::string SelectedNode(const std::string& window = {}) const;           // its text; empty if there is none
    // A mouse click; the empty path is a place below the last node.
    void SelectNode(const NodePath& node, const std::string& window = {}) const;
    void ExpandNode(const NodePath& node, const std::string& window = {}) const; // mouse click on its button

    // The panes of the window's splitter, in its coordinates and in the order of their making.
    std::vector<RECT> Panes(const std::string& window = {}) const;
    // Drags the bar to the right of a pane sideways, or the one below it up and down.
    void DragBar(std::size_t pane, int byX, int byY, const std::string& window = {}) const;

    // The folder dialog on show, which has the buttons "Choose" and "Cancel": the folder that it would give now, and
    // putting another one's path into its edit, at once, so that no list of completions opens. Paths in UTF-8.
    std::string BrowsedFolder() const;
    void TypeFolder(const std::string& path) const;

    // A right click on a part of the window that no control takes.
    void RightClickWindow(const std::string& window = {}) const;

    // The menu bar: its menus; opening one, which is the popup menu on show then; and choosing an entry of one.
    std::vector<std::string> MainMenus(const std::string& window = {}) const;
    void OpenMainMenu(const std::string& menu, const std::string& window = {}) const;
    void ChooseMainMenu(const std::string& menu, const std::string& entry, const std::string& window = {}) const;
    // The edge that the one tool bar stands at, "left", "top", "right" or "bottom", and dragging it there by its
    // gripper.
    std::string ToolBarEdge(const std::string& window = {}) const;
    void DragToolBar(const std::string& edge, const std::string& window = {}) const;
    // The message in the status bar.
    std::string StatusText(const std::string& window = {}) const;

    // The popup menu on show: its entries ("-" for a separator), and choosing one by its text.
    std::vector<std::string> MenuEntries() const;
    bool IsMenuEntryEnabled(const std::string& text) const;
    void ChooseMenu(const std::string& text) const;
    void CloseMenu() const;

    // One press, click, drag, key, resize or close somewhere in a window that takes input; false if that was not
    // possible where the dice fell. Throws as all others do if the event loop takes no input.
    bool ActAtRandom(std::minstd_rand& dice) const;

    // Controls whose text does not fit into them, and controls that lie outside their window or on one another, one
    // line each; empty if the layout is sound.
    std::string LayoutFaults(const std::string& window = {}) const;

private:
    Milliseconds m_deadline;
};

// Starts the off-screen desktop for a test program, once, before the first test. Called by the tests' main.
void StartTestDesktop(int& argc, char** argv);
// Ends it again, after the last test.
void StopTestDesktop();

// Runs `userInterface` (a DoModal, or a loop) on this thread while `script` runs on another; returns when both have
// ended. A RobotError or any other exception of the script closes all windows and is thrown on here.
void RunScript(const std::function<void()>& userInterface, const std::function<void(Robot&)>& script);

// Serves messages on this thread until the condition holds or the deadline passes; gives whether it held.
bool ServeMessagesUntil(const std::function<bool()>& condition,
                        std::chrono::milliseconds deadline = std::chrono::milliseconds(10000));
