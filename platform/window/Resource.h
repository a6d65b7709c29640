// Dialogs, menus, texts and pictures as data. The program hands the layer one table at start; the classes of this
// folder look entries up by number.
//
// Sizes in a dialog are dialog units: a quarter of the average character width and an eighth of the character height of
// the desktop's font, so a dialog follows the font and the screen's scaling. All texts are UTF-8; they become byte text
// in the code page when they are loaded.
#pragma once

#include "platform/Types.h"

#include <span>
#include <string>
#include <string_view>

enum class ControlClass
{
    Label,       // text; its mnemonic leads to the next control in Tab order
    Picture,     // a picture of the table, by `picture`, filling the control; keeps its proportions
    Button,      // push button
    CheckBox,    // two states
    RadioButton, // one of a group
    Edit,        // one line of text
    ListView,    // report list
    ListBox,     // rows of which any number can be selected
    ProgressBar,
    GroupBox,
    TabControl, // a row of tabs above an area for what they stand for
};

// Styles of a control, to be joined.
inline constexpr DWORD CS_NONE = 0;
inline constexpr DWORD CS_HIDDEN = 0x1;   // created hidden
inline constexpr DWORD CS_DISABLED = 0x2; // created disabled
inline constexpr DWORD CS_READONLY = 0x4; // an edit that shows, selects and copies, and takes no input
inline constexpr DWORD CS_DEFAULT = 0x8;  // the button that Enter presses
inline constexpr DWORD CS_NUMBER = 0x10;  // an edit for digits alone
inline constexpr DWORD CS_NOTAB = 0x20;   // not reached by Tab
inline constexpr DWORD CS_NOTIFY = 0x100; // a label, of one line and without a mnemonic, that can be pressed: a link

// The number of controls that nobody names: labels, pictures.
inline constexpr int kUnnamedControl = 0xFFFF;

struct ControlTemplate
{
    ControlClass kind;
    int id;
    int x, y, width, height;
    DWORD style = CS_NONE;
    std::string_view text = {};           // caption, with "&" before the mnemonic
    std::string_view accessibleName = {}; // empty: the caption without "&", or the label before the control
    int picture = 0;
};

// Styles of a dialog.
inline constexpr DWORD DS_NONE = 0;
inline constexpr DWORD DS_MINIMIZEBOX = 0x1;
inline constexpr DWORD DS_SYSMENU = 0x2; // has a system menu and a close box

struct DialogTemplate
{
    int id;
    int width, height; // of the client area
    DWORD style;
    std::string_view caption;
    std::span<const ControlTemplate> controls; // in Tab order
};

// One entry of a menu. Entries follow each other as they show; an entry with `depth` one above the last one's stands
// in that one's sub-menu. Top-level entries (depth 0) are the sub-menus that GetSubMenu takes by position.
struct MenuEntry
{
    int depth;
    UINT id;               // command; 0 for the head of a sub-menu and for a separator
    std::string_view text; // "&" before the mnemonic, "\t" before a shortcut; empty for a separator
};

struct MenuTemplate
{
    int id;
    std::span<const MenuEntry> entries;
};

// A tool bar: its buttons in order, with their pictures; command 0 is a separator.
struct ToolBarButton
{
    UINT command;
    int picture;
};

struct ToolBarTemplate
{
    int id;
    std::span<const ToolBarButton> buttons;
};

// A row of small pictures that CImageList numbers from 0.
struct ImageStrip
{
    int id;
    std::span<const int> pictures;
};

struct TextEntry
{
    UINT id;
    std::string_view text;
};

// A picture as an SVG document.
struct PictureEntry
{
    int id;
    std::string_view svg;
};

struct ResourceTable
{
    std::string_view applicationName; // what the desktop shows for the program
    std::string_view desktopFile;     // name of the desktop entry, without its ending
    std::span<const DialogTemplate> dialogs;
    std::span<const MenuTemplate> menus;
    std::span<const TextEntry> texts;
    std::span<const PictureEntry> pictures;
    std::span<const ToolBarTemplate> toolBars = {};
    std::span<const ImageStrip> imageStrips = {};
    std::string_view version = {}; // what `--version` says behind the application's name
    std::string_view usage = {};   // what `--help` prints, whole lines
};

// Called once at start; the table must outlive the program. A debug build checks it: control numbers that stand twice
// in a dialog, two default buttons, a picture of a dialog, tool bar or image strip that is not there, and stops with a
// message that names the fault.
void AfxSetResources(const ResourceTable& table);
// Null while none was set.
const ResourceTable* AfxGetResources();
// What is wrong with a table, one line a fault; empty if nothing is.
std::string CheckResources(const ResourceTable& table);

// The text with a number, in the system's code page; empty if there is none. Any thread.
std::string AfxLoadString(UINT id);
