// Numbers of the resources: dialogs, controls, menus, commands, texts and pictures.
#pragma once

// Pictures.
inline constexpr int IDI_APPLICATION_ICON = 128;
inline constexpr int IDB_BANNER = 129;
inline constexpr int IDB_CLEAR_HISTORY = 130;
inline constexpr int IDB_HISTORY = 131;
inline constexpr int IDB_DAY = 132;
inline constexpr int IDB_PAGE = 133;
inline constexpr int IDB_FILE = 134;
inline constexpr int IDB_SETTINGS = 135;
inline constexpr int IDB_SETTINGS_PAGE = 136;
inline constexpr int IDB_ALBUM = 137;

// Dialogs.
inline constexpr int IDD_MAIN = 102;
inline constexpr int IDD_PROGRESS = 103;
inline constexpr int IDD_BATCH = 104;
inline constexpr int IDD_VERSION = 160;
inline constexpr int IDD_ABOUT = 161;
inline constexpr int IDD_DOWNLOAD_SET = 105;
inline constexpr int IDD_GENERAL = 106;
inline constexpr int IDD_RESOLUTIONS = 107;

// A control that nobody names.
inline constexpr int IDC_STATIC = 0xFFFF;

// Controls of the main dialog; Exit is the dialog's cancel button.
inline constexpr int IDC_WINDOW_LIST = 1000;
inline constexpr int IDC_REFRESH = 1001;
inline constexpr int IDC_DOWNLOAD = 1002;
inline constexpr int IDC_OPEN_FOLDER = 1003;
inline constexpr int IDC_HISTORY = 1004;
inline constexpr int IDC_ALBUM = 1005;
inline constexpr int IDC_ADVANCED = 1006;
inline constexpr int IDC_SETUP = 1007;
inline constexpr int IDC_HELP_MENU = 1008;

// The progress fields, in every window that has them; Cancel All is the dialog's cancel button.
inline constexpr int IDC_TRANSFER_FROM = 1020;
inline constexpr int IDC_TRANSFER_FILE = 1021;
inline constexpr int IDC_TRANSFER_SIZE = 1022;
inline constexpr int IDC_TRANSFER_BAR = 1023;
inline constexpr int IDC_TRANSFER_PERCENT = 1024;
inline constexpr int IDC_CANCEL_CURRENT = 1025;

// Controls of the version check.
inline constexpr int IDC_VERSION_OWN = 1100;
inline constexpr int IDC_VERSION_INFO = 1101;
inline constexpr int IDC_VERSION_DOWNLOAD = 1102;

// Controls of the about box.
inline constexpr int IDC_ABOUT_VERSION = 1110;

// Controls of the history window.
inline constexpr int IDC_HISTORY_TOOLBAR = 101;
inline constexpr int IDC_HISTORY_TREE = 102;
inline constexpr int IDC_HISTORY_LIST = 103;

// Controls of the download settings; the preset resolutions follow each other.
inline constexpr int IDC_SAVE_FOLDER = 1030;
inline constexpr int IDC_BROWSE = 1031;
inline constexpr int IDC_LIMIT_SIZE = 1032;
inline constexpr int IDC_BIG_THAN = 1033;
inline constexpr int IDC_BIG_THAN_KB = 1034;
inline constexpr int IDC_BIG_THAN_UNIT = 1035;
inline constexpr int IDC_SMALL_THAN = 1036;
inline constexpr int IDC_SMALL_THAN_KB = 1037;
inline constexpr int IDC_SMALL_THAN_UNIT = 1038;
inline constexpr int IDC_LIMIT_RESOLUTION = 1039;
inline constexpr int IDC_PRESET = 1040; // to 1044
inline constexpr int IDC_MORE = 1045;
inline constexpr int IDC_IMAGES = 1046;
inline constexpr int IDC_MP3 = 1047;
inline constexpr int IDC_FLASH = 1048;

// Controls of the list of resolutions.
inline constexpr int IDC_RESOLUTION_X = 1050;
inline constexpr int IDC_RESOLUTION_Y = 1051;
inline constexpr int IDC_RESOLUTION_LIST = 1052;
inline constexpr int IDC_ADD = 1053;
inline constexpr int IDC_REMOVE = 1054;

// Controls of the system settings.
inline constexpr int IDC_ADD_BUTTON = 1060;
inline constexpr int IDC_REMOVE_BUTTON = 1061;

// Icons of the settings: of a page, and of one that has none.
inline constexpr int IDR_SETTINGS = 140;

// Menu and tool bar of the history window, and its pictures of levels.
inline constexpr int IDR_HISTORY = 167;
inline constexpr int IDR_HISTORY_LEVELS = 175;

// Menu and tool bar of the window of advanced commands.
inline constexpr int IDR_ADVANCED = 191;
inline constexpr int IDC_ADVANCED_TOOLBAR = 101;

// Popup menus.
inline constexpr int IDR_LIST_POPUP = 149;
inline constexpr int IDR_HELP_POPUP = 187;

// Commands.
inline constexpr int ID_ABOUT_SYSTEM = 16; // in the system menu: the low four bits are the system's own
inline constexpr int ID_SELECT_ALL = 32771;
inline constexpr int ID_REVERSE_SELECT = 32772;
inline constexpr int ID_CLEAR_HISTORY = 32774;
inline constexpr int ID_EMAIL_SUPPORT = 32783;
inline constexpr int ID_CREATE_ALBUM = 32785;
inline constexpr int ID_NEW_PROJECT = 57600;
inline constexpr int ID_ABOUT = 57664;
inline constexpr int ID_USER_MANUAL = 57670;
inline constexpr int ID_APP_EXIT = 57694;
inline constexpr int ID_HOME_PAGE = 57693;
inline constexpr int ID_CHECK_VERSION = 57695;

// Texts.
inline constexpr int IDS_ABOUT_SYSTEM = 101;
inline constexpr int IDS_UNTITLED_PAGE = 102;
inline constexpr int IDS_COLUMN_TITLE = 103;
inline constexpr int IDS_COLUMN_URL = 104;
inline constexpr int IDS_NO_PROGRESS_WINDOW = 105;
inline constexpr int IDS_NO_WINDOW_COLLECTION = 106;
inline constexpr int IDS_TERMINATING = 107;
inline constexpr int IDS_NO_FILES = 108;
inline constexpr int IDS_GETTING_LIST = 109;
inline constexpr int IDS_DOWNLOADING = 110;
inline constexpr int IDS_DOWNLOAD_COMPLETE = 111;
inline constexpr int IDS_CANCEL_ALL = 112;
inline constexpr int IDS_OK = 113;
inline constexpr int IDS_ASK_CANCEL = 114;
inline constexpr int IDS_NO_FOLDER = 115;
inline constexpr int IDS_FILTERED = 116;
inline constexpr int IDS_SIZE = 117;
inline constexpr int IDS_PERCENT = 118;
inline constexpr int IDS_NO_PAGE = 119;
inline constexpr int IDS_NO_URL_CACHE = 120;
inline constexpr int IDS_NO_MEMORY = 121;
inline constexpr int IDS_BAD_URL_CACHE = 122;
inline constexpr int IDS_COLUMN_FILE = 123;
inline constexpr int IDS_COLUMN_SIZE = 124;
inline constexpr int IDS_COLUMN_PATH = 125;
inline constexpr int IDS_COLUMN_ADDRESS = 126;
inline constexpr int IDS_SIZE_KB = 127;
inline constexpr int IDS_NO_BROWSER = 134;
inline constexpr int IDS_BROWSER_OPEN = 135;
inline constexpr int IDS_BROWSER_ASKS = 136;
inline constexpr int IDS_BROWSER_STALE = 137;
inline constexpr int IDS_BROWSER_NOT_ENABLED = 138;
inline constexpr int IDS_BROWSER_REFUSED = 139;
inline constexpr int IDS_BROWSER_NO_BUTTON = 143;
inline constexpr int IDS_HINT_NO_PAGE = 140;
inline constexpr int IDS_HINT_ASKS = 141;
inline constexpr int IDS_HINT_START = 142;
inline constexpr int IDS_BROWSER_TAKEN = 143;
inline constexpr int IDS_HINT_TAKEN = 144;
inline constexpr int IDS_LINK_ERRORS = 400; // and the code up to 32 of the platform: why a link could not be opened
inline constexpr int IDS_LINK_ERROR_UNKNOWN = 433;
inline constexpr int IDS_LINK_FAILED = 434;
inline constexpr int IDS_VERSION_NUMBER = 440;
inline constexpr int IDS_VERSION_CONNECTING = 441;
inline constexpr int IDS_VERSION_NO_SERVER = 442;
inline constexpr int IDS_VERSION_NO_ANSWER = 443;
inline constexpr int IDS_VERSION_NEWER = 444;
inline constexpr int IDS_VERSION_LATEST = 445;
inline constexpr int IDS_VERSION_OK = 446;
inline constexpr int IDS_HELP_FILE = 450;
inline constexpr int IDS_HOME_PAGE = 451;
inline constexpr int IDS_EMAIL_SUPPORT = 452;
inline constexpr int IDS_PRODUCT_VERSION = 453;
inline constexpr int IDS_ADVANCED_WINDOW = 460;
inline constexpr int IDS_ALBUM_NO_COMPONENT = 461;
inline constexpr int IDS_ALBUM_DISPATCH_ERROR = 462;
inline constexpr int IDS_ALBUM_UNKNOWN_ERROR = 463;
inline constexpr int IDS_CONFIGURATION = 128;
inline constexpr int IDS_NO_DOWNLOAD_FOLDER = 129;
inline constexpr int IDS_ENTER_RESOLUTION = 130;
inline constexpr int IDS_SELECT_RESOLUTION = 131;
inline constexpr int IDS_BUTTON_ADDED = 132;
inline constexpr int IDS_BUTTON_REMOVED = 133;
inline constexpr int IDS_HISTORY_WINDOW = 32778;
inline constexpr int IDS_HISTORY = 32779;
inline constexpr int IDS_HISTORY_REMOVED = 32782;
