#include "TestDialog.h"

#include "platform/window/Resource.h"

#include <QApplication>
#include <QFont>

TEST(Resources, FaultsOfATableAreNamed)
{
    const auto label = ControlTemplate{ControlClass::Label, 0xFFFF, 0, 0, 9, 9};
    const auto button = [](int id, DWORD style = CS_NONE) {
        return ControlTemplate{ControlClass::Button, id, 0, 0, 9, 9, style};
    };
    const auto picture = ControlTemplate{ControlClass::Picture, 0xFFFF, 0, 0, 9, 9, CS_NONE, {}, {}, 555};
    const std::vector<ToolBarButton> buttons{{0, 0}, {ID_FIRST, 556}};
    const std::vector<int> images{557};
    const struct
    {
        std::vector<ControlTemplate> controls;
        const char* named; // null: sound
        std::span<const ToolBarButton> buttons = {};
        std::span<const int> images = {};
    } rows[] = {
        {{label, label, button(700), button(701, CS_DEFAULT)}, nullptr},
        {{button(700), label, button(700)}, "700"},
        {{button(700, CS_DEFAULT), button(701, CS_DEFAULT)}, "default"},
        {{picture}, "555"},
        {{}, "tool bar 8: no picture 556", buttons},
        {{}, "image strip 9: no picture 557", {}, images},
    };
    for (const auto& row : rows)
    {
        const DialogTemplate dialog{100, 50, 50, DS_NONE, "x", row.controls};
        ResourceTable table{};
        table.dialogs = {&dialog, 1};
        const ToolBarTemplate toolBar{8, row.buttons};
        table.toolBars = {&toolBar, 1};
        const ImageStrip strip{9, row.images};
        table.imageStrips = {&strip, 1};
        const std::string faults = CheckResources(table);
        if (row.named)
            EXPECT_NE(faults.find(row.named), std::string::npos) << faults;
        else
            EXPECT_EQ(faults, "");
    }
}

TEST(Resources, TheLayoutFollowsTheFont)
{
    const QFont usual = QApplication::font();
    for (const int points : {8, usual.pointSize(), 17, 30})
    {
        QFont font = usual;
        font.setPointSize(points);
        QApplication::setFont(font);
        TestDialog form;
        form.Open();
        EXPECT_EQ(Robot().LayoutFaults(), "") << points;
        TestDialog list;
        list.Open(IDD_LIST);
        EXPECT_EQ(Robot().LayoutFaults("List"), "") << points;
    }
    QApplication::setFont(usual);
}
