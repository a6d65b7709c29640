// The program without a display, as whoever starts it from a console sees it.
#include "Program.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sstream>

namespace
{

// What a terminal shows in the end. Fails if a line in place is ever as wide as the terminal.
std::string Screen(const std::string& output, std::size_t columns)
{
    const std::string erase = "\x1b[K";
    std::string screen;
    std::string line;
    std::size_t column = 0;
    for (std::size_t i = 0; i < output.size(); ++i)
    {
        const auto byte = static_cast<unsigned char>(output[i]);
        if (output.compare(i, erase.size(), erase) == 0)
        {
            EXPECT_LT(column, columns);
            line.resize(column);
            i += erase.size() - 1;
        }
        else if (byte == '\r')
            column = 0;
        else if (byte == '\n')
        {
            screen += line + '\n';
            line.clear();
        }
        else if ((byte & 0xC0) != 0x80) // each character once; all of these tests take one column
        {
            line.resize(std::max(line.size(), column + 1));
            line[column++] = byte < 0x80 ? output[i] : '#';
        }
    }
    return screen;
}

const std::string kBegin = "Now getting download files list...\nDownload files now...\n";
const std::string kEnd = "Download complete!\n";

} // namespace

TEST(Console, GivesEachItemALineWithItsOwnEnd)
{
    std::ostringstream expected;
    const auto item = [&](const std::string& file, unsigned size, unsigned percent) {
        expected << "host  " << file << "  " << size << " Bytes  " << percent << "% Complete\n";
    };
    for (unsigned i = 0; i < 1000; ++i)
    {
        if (i % 10 == 5)
            item("/smallFiltered.", 0, 100);
        item(i % 3 == 0 ? "/f" + std::to_string(i) : "/same", i % 7, i % 101);
        for (int twice = 0; i % 10 == 7 && twice < 2; ++twice)
            item("/twiceFiltered.", 0, 100);
    }
    Program program({.scenario = "quick"});
    EXPECT_EQ(program.End(), 0);
    EXPECT_EQ(program.Out(), kBegin + expected.str() + kEnd);
    EXPECT_EQ(program.Error(), "");
}

TEST(Console, EndsWithAStatusThatTellsHowItWent)
{
    const std::string one = kBegin + "host\uFFFD]0;x\uFFFD  /a\uFFFD.jpg  10 Bytes  100% Complete\n" + kEnd;
    const struct
    {
        Program::Start start;
        int status;
        std::string out;
        std::string error;
    } rows[] = {
        {{.scenario = "one"}, 0, one, ""},
        {{.scenario = "one", .environment = {"CONSOLE_STATUS=7"}}, 7, one, ""},
        {{.scenario = "one", .environment = {"VANTROY_DESKTOP=console", "QT_QPA_PLATFORM=nonsense"}}, 0, one, ""},
        {{.scenario = "one", .environment = {"DISPLAY=:98765"}}, 0, one, ""},
        {{.scenario = "one", .environment = {"VANTROY_CODEPAGE=936"}},
         0,
         kBegin + "host?]0;x?  /a?.jpg  10 Bytes  100% Complete\n" + kEnd,
         ""},
        {{.scenario = "one", .environment = {"TERM=dumb"}, .output = Output::Terminal}, 0, "", ""},
        {{.scenario = "one", .output = Output::ClosedPipe}, 0, "", ""},
        {{.scenario = "boxes"},
         1,
         kBegin + "host  /a  1 Bytes  100% Complete\n" + kEnd,
         "vantroy: Go on? No\nvantroy: Answered No.\uFFFD[31m\n"},
        {{.scenario = "nothing"}, 1, kBegin + kEnd, "vantroy: Nothing came.\n"},
        {{.scenario = "box"}, 1, "", "vantroy: Cannot start.\nvantroy: Nothing came.\n"},
        {{.scenario = "plain"},
         2,
         "",
         "vantroy: no display for the main window; --all and --current do without one, see --help\n"},
        {{.scenario = "one", .arguments = {"--foo\x1b"}}, 2, "", "vantroy: unknown option --foo\uFFFD; see --help\n"},
        {{.scenario = "one", .arguments = {"--all", "--mine"}}, 0, "mine\n", ""},
        {{.scenario = "one", .arguments = {"--all", "--version"}}, 0, "Vantroy 1.2.0\n", ""},
    };
    for (const auto& row : rows)
    {
        Program program(row.start);
        EXPECT_EQ(program.End(), row.status) << row.start.scenario;
        if (row.start.output == Output::Pipe)
            EXPECT_EQ(program.Out(), row.out);
        else
            EXPECT_EQ(program.Out().find('\x1b'), std::string::npos);
        EXPECT_EQ(program.Error(), row.error) << row.start.scenario;
    }
    Program help({.scenario = "one", .arguments = {"-h"}});
    EXPECT_EQ(help.End(), 0);
    EXPECT_TRUE(help.Out().starts_with("Usage: vantroy ") && help.Out().ends_with("\n"));
}

TEST(Console, RewritesOneLineOfATerminal)
{
    const struct
    {
        const char* scenario;
        unsigned short columns;
        std::string line;
    } rows[] = {
        {"quick", 80, "host  /f999  5 Bytes  90% Complete"},
        {"long", 80, "hhhhhhhhhhh#hhhhhhhhhh  /#xxxxxxxx#xxxxxx.jpg  4294967295 Bytes  45% Complete"},
        {"long", 20, "45% Complete"},
    };
    for (const auto& row : rows)
    {
        Program program({.scenario = row.scenario, .output = Output::Terminal, .columns = row.columns});
        EXPECT_EQ(program.End(), 0);
        EXPECT_EQ(Screen(program.Out(), row.columns), kBegin + row.line + "\n" + kEnd) << row.columns;
    }
}

TEST(Console, IsStoppedBySignalsStepByStep)
{
    const std::string question = "vantroy: Are you sure you want to cancel current download task? Yes\n";
    const std::string stopped = "vantroy: stopped\n";
    const std::string item = "host  /endless.jpg  1000 Bytes  12% Complete";
    const std::string ended = kBegin + item + "\n" + kEnd;
    const struct
    {
        const char* scenario;
        std::vector<int> numbers;
        std::vector<std::string> answers; // on standard error, to each
        int status;
        std::string screen;
    } rows[] = {
        {"patient", {SIGINT}, {question + stopped}, 128 + SIGINT, ended},
        {"patient", {SIGTERM}, {question + stopped}, 128 + SIGTERM, ended},
        {"stuck", {SIGHUP, SIGINT}, {question, stopped}, 128 + SIGHUP, ended},
        {"deaf", {SIGINT, SIGINT, SIGTERM}, {question, "vantroy: I go on.\n", ""}, 128 + SIGTERM, kBegin},
    };
    for (const auto& row : rows)
    {
        Program program({.scenario = row.scenario, .output = Output::Terminal});
        ASSERT_TRUE(program.Await(item));
        std::string error;
        for (std::size_t i = 0; i < row.numbers.size(); ++i)
        {
            program.Signal(row.numbers[i]);
            error += row.answers[i];
            ASSERT_TRUE(program.Await(error)) << program.Error();
        }
        EXPECT_EQ(program.End(), row.status) << row.scenario;
        EXPECT_EQ(Screen(program.Out(), 80), row.screen) << row.scenario;
        EXPECT_EQ(program.Error(), error);
    }
}
