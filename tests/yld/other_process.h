#ifndef OTHER_PROCESS_H
#define OTHER_PROCESS_H

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

/// A process that runs beside the test and goes along with it step by step. It must begin before the test opens
/// anything, for it has a copy of all that is open then.
class OtherProcess
{
public:
    /// @param function  runs there; gets this object, to wait for the test and tell it things
    template<class Function> explicit OtherProcess(Function&& function)
    {
        if (pipe(m_toChild) != 0 || pipe(m_toParent) != 0) ADD_FAILURE() << "no pipe";
        m_child = fork();
        if (m_child != 0) {
            close(m_toChild[0]);
            close(m_toParent[1]);
            return;
        }
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        close(m_toChild[1]);
        close(m_toParent[0]);
        int status = 99;
        try {
            function(*this);
            status = testing::Test::HasFailure() ? 98 : 0;
        } catch (const std::exception& failure) {
            std::fprintf(stderr, "in the other process: %s\n", failure.what());
        }
        _exit(status);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    ~OtherProcess()
    {
        if (m_child > 0) kill();
        close(m_toChild[1]);
        close(m_toParent[0]);
    }

    /// There: waits until the test says go().
    void await() { receive(m_toChild[0]); }
    /// There: says that a step is done.
    void done() { send(m_toParent[1]); }

    /// Here: lets the other process do its next step, and waits until it is done. False if it has died.
    bool go()
    {
        send(m_toChild[1]);
        return receive(m_toParent[0]);
    }
    /// Here: waits for the end; the exit status, 99 for an exception, 98 for a failed expectation, -signal for a
    /// signal.
    int finish()
    {
        int status = 0;
        waitpid(m_child, &status, 0);
        m_child = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    int kill()
    {
        ::kill(m_child, SIGKILL);
        return finish();
    }

private:
    static void send(int pipe)
    {
        const char step = '.';
        if (write(pipe, &step, 1) != 1) std::perror("write");
    }
    static bool receive(int pipe)
    {
        char step = 0;
        return read(pipe, &step, 1) == 1;
    }

    pid_t m_child = 0;
    int m_toChild[2] = {-1, -1};
    int m_toParent[2] = {-1, -1};
};

/// What a process ends with when the machine does not let it do what it is for.
constexpr int notPossible = 77;

/// Gives up, for the calling process, the right to write where the permissions forbid it; ends it where the path is
/// out of reach after that.
inline void becomeNobody(const std::string& path)
{
    constexpr uid_t nobody = 65534;
    const bool done = geteuid() != 0 || (setgid(nobody) == 0 && setuid(nobody) == 0);
    if (!done || access(path.c_str(), R_OK) != 0) _exit(notPossible);
}

#endif
