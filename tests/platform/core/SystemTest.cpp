#include "platform/system/CommandLine.h"
#include "platform/system/CommandLine_p.h"
#include "platform/system/LastError.h"
#include "platform/system/TaskQueue_p.h"
#include "tests/platform/Worker.h"

#include <QCoreApplication>

#include <atomic>
#include <gtest/gtest.h>
#include <stdexcept>

namespace
{

std::vector<char*> ArgvOf(const std::vector<std::string>& arguments)
{
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    return argv;
}

TEST(CommandLine, NeverReadsAFolderAsASwitch)
{
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{"/home/allan/vantroy"}, R"("\home\allan\vantroy")"},
        {{"./vantroy", "--current", "x"}, R"(".\vantroy" /current x)"},
        {{"v", "/ALL", "--all", "--all2", "a b"}, R"("v" /ALL /all --all2 a b)"},
        {{}, R"("")"},
    };
    for (const auto& [arguments, line] : rows)
    {
        std::vector<char*> argv = ArgvOf(arguments);
        SetCommandLine(static_cast<int>(argv.size()), argv.data());
        EXPECT_STREQ(GetCommandLineA(), line);
    }
}

TEST(CommandLine, AnswersTheFirstOptionThatAsks)
{
    const std::tuple<std::vector<std::string>, StartOption, const char*> rows[] = {
        {{}, StartOption::None, ""},
        {{"--help"}, StartOption::None, ""}, // the program itself
        {{"v", "--all", "--current", "/all", "-a", "help"}, StartOption::None, ""},
        {{"v", "--all", "-h"}, StartOption::Help, "-h"},
        {{"v", "--version", "--help"}, StartOption::Version, "--version"},
        {{"v", "--ALL", "--help"}, StartOption::Unknown, "--ALL"},
        {{"v", "--helpme"}, StartOption::Unknown, "--helpme"},
        {{"v", "--"}, StartOption::Unknown, "--"},
    };
    for (const auto& [arguments, option, argument] : rows)
    {
        std::vector<char*> argv = ArgvOf(arguments);
        const StartRequest request = FindStartRequest(static_cast<int>(argv.size()), argv.data());
        EXPECT_EQ(request.option, option) << argument;
        EXPECT_EQ(request.argument, argument);
    }
}

class WorkerTest : public testing::Test
{
protected:
    int m_argc = 1;
    char m_name[5] = "test";
    char* m_argv[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argc, m_argv};
    TaskQueue m_queue;
};

TEST_F(WorkerTest, WaitServesWhatTheWorkerCalls)
{
    int served = 0;
    const Worker thread([&] {
        for (int i = 0; i < 100; ++i)
            EXPECT_TRUE(m_queue.Call([&] { served += m_queue.IsServingThread(); }));
        EXPECT_THROW(m_queue.Call([] { throw std::runtime_error("task"); }), std::runtime_error);
    });
    thread->Wait();
    EXPECT_FALSE(thread->IsRunning());
    EXPECT_EQ(served, 100);
    thread->Wait();
}

TEST_F(WorkerTest, WaitServesAlsoBehindTheEndOfTheMainLoop)
{
    m_queue.Post([] { QCoreApplication::quit(); });
    QCoreApplication::exec();
    bool served = false;
    {
        const Worker thread([&] { m_queue.Call([&] { served = true; }); });
    }
    EXPECT_TRUE(served);
}

TEST_F(WorkerTest, WaitFromInsideAServedTask)
{
    const Worker thread([&] { m_queue.Post([&] { thread->Wait(); }); });
    thread->Wait();
    EXPECT_FALSE(thread->IsRunning());
}

TEST_F(WorkerTest, ClosedQueueFailsItsCallers)
{
    // The close meets a call that waits in some rounds and one still to come in others.
    for (int round = 0; round < 200; ++round)
    {
        TaskQueue queue;
        std::atomic<bool> calling = false;
        bool result = true;
        const Worker thread([&] {
            calling = true;
            result = queue.Call([&] { ADD_FAILURE() << "ran"; });
        });
        for (int turns = round; !calling || turns > 0; --turns)
            std::this_thread::yield();
        queue.Close();
        thread->Wait();
        EXPECT_FALSE(result);
        EXPECT_FALSE(queue.Post([] {}));
    }
}

TEST_F(WorkerTest, CancelAndLastErrorAreOfTheirThreadAlone)
{
    SetLastError(ERROR_DISK_FULL);
    const Worker thread([] {
        EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
        while (!IsSynchronousIoCancelled())
            std::this_thread::yield();
    });
    thread->CancelSynchronousIo();
    std::thread([&] { thread->Wait(); }).join();
    EXPECT_FALSE(thread->IsRunning());
    EXPECT_FALSE(IsSynchronousIoCancelled());
}

} // namespace
