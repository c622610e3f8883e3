// Shows that a killed writer costs nothing that was saved. A child writes and saves at random and tells of every save;
// its parent kills it at a random instant, opens the file and compares what is there, value by value, with the state
// that was confirmed last, or with the one that was being saved.
//
//     crash_writer [--kills N] [--seed S] [--folder PATH]
//
// It works in a folder of its own inside PATH, by default the folder for temporary files; what failed stays there.

#include "store/sample_states.h"

#include <sqlite3.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using std::chrono::microseconds;

constexpr long long largestArray = 10'000'000;
constexpr int created = -1; // what the child tells once the file is there, before its first state

struct Settings
{
    int kills = 300;
    unsigned seed = 20261121;
    std::filesystem::path folder;
};

void tell(int pipe, int number)
{
    if (write(pipe, &number, sizeof number) != sizeof number) _exit(4);
}

// Never comes back: writes states until it is killed.
[[noreturn]] void writeStates(const std::string& path, SampleStates states, unsigned seed, int pipe)
{
    try {
        std::mt19937 random(seed);
        fio_File file;
        if (std::filesystem::exists(path)) {
            file = fio_File::Open(path.c_str(), true, true);
            tell(pipe, states.number());
        } else {
            file = fio_File::Create(path.c_str());
            SampleStates::plant(file);
            file.body()->save();
            tell(pipe, created);
        }
        for (;;) {
            states.advance(&file);
            file.body()->save();
            tell(pipe, states.number());
            switch (random() % 12) {
            case 0:
                // What is closed without a save is gone.
                states.scribble(file);
                [[fallthrough]];
            case 1:
                file = fio_File();
                file = fio_File::Open(path.c_str(), true, true);
                break;
            default:
                break;
            }
        }
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "the writer failed: %s\n", failure.what());
    }
    _exit(3);
}

// Reads what the child has told so far. @param[in,out] confirmed  the last of it. @return how many there were
int drain(int pipe, int* confirmed)
{
    int count = 0;
    pollfd waiting{pipe, POLLIN, 0};
    while (poll(&waiting, 1, 0) > 0 && (waiting.revents & POLLIN)) {
        int number = 0;
        if (read(pipe, &number, sizeof number) != sizeof number) break;
        *confirmed = number;
        ++count;
    }
    return count;
}

// Whether a journal has something to roll back. One that was left behind before its first page, or after the end of its
// transaction, stays until the next transaction; the file is whole without it.
bool isNeeded(const std::string& journal)
{
    std::FILE* file = std::fopen(journal.c_str(), "rb");
    if (!file) return false;
    const int first = std::fgetc(file);
    std::fclose(file);
    return first != EOF && first != 0;
}

bool isIntact(const std::string& path)
{
    sqlite3* handle = nullptr;
    std::string answer = "cannot be opened";
    if (sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        sqlite3_exec(
            handle, "PRAGMA integrity_check",
            [](void* text, int, char** values, char**) {
                *static_cast<std::string*>(text) = values[0];
                return 0;
            },
            &answer, nullptr);
    }
    sqlite3_close(handle);
    if (answer != "ok") std::fprintf(stderr, "the tables: %s\n", answer.c_str());
    return answer == "ok";
}

class Trial
{
public:
    explicit Trial(const Settings& settings) : m_settings(settings), m_random(settings.seed) {}

    int run()
    {
        for (m_turn = 0; m_turn < m_settings.kills; ++m_turn) {
            // Every tenth run goes on with the same file, which so outlives many crashes.
            const bool goesOn = m_turn % 10 == 9;
            const std::string path = (m_settings.folder / (goesOn ? "lasting.yld" : "fresh.yld")).string();
            if (goesOn) {
                if (m_lastingSeed == 0) m_lastingSeed = m_random() | 1u;
                if (!kill(path, m_lastingSeed, m_lasting)) return 1;
            } else {
                int none = created - 1;
                std::filesystem::remove(path);
                if (!kill(path, m_random(), none)) return 1;
                std::filesystem::remove(path);
            }
        }
        std::printf(
            "%d kills: %d before the file was made, %d with a journal left behind, %d of a state beyond the last "
            "confirmed one; %lld states confirmed; the file that lasted reached state %d\n",
            m_settings.kills, m_beforeFile, m_withJournal, m_beyond, m_confirmedStates, m_lasting);
        // Kills that never struck inside a transaction would have shown nothing.
        if (m_settings.kills >= 100 &&
            (m_withJournal < m_settings.kills / 20 || m_confirmedStates < m_settings.kills / 4)) {
            std::printf("too few kills struck a transaction\n");
            return 1;
        }
        return 0;
    }

private:
    bool fail(const std::string& path, const std::string& what) const
    {
        std::printf("kill %d of seed %u: %s: %s\n", m_turn, m_settings.seed, path.c_str(), what.c_str());
        return false;
    }

    // One child, one kill, one look. @param[in,out] last  the state that the file has; below `created` where there is
    // no file yet
    bool kill(const std::string& path, unsigned statesSeed, int& last)
    {
        SampleStates states(statesSeed, largestArray);
        states.advanceTo(last);
        int ends[2];
        if (pipe(ends) != 0) return fail(path, std::strerror(errno));
        const unsigned childSeed = m_random();
        const pid_t child = fork();
        if (child < 0) return fail(path, std::strerror(errno));
        if (child == 0) {
            close(ends[0]);
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            writeStates(path, states, childSeed, ends[1]);
        }
        close(ends[1]);

        int confirmed = last;
        int told = 0;
        // Half of the kills come some time after the start, the others shortly after a save, where the next one is.
        if (m_random() % 2 == 0) {
            std::this_thread::sleep_for(microseconds(m_random() % 150000));
        } else {
            const int wanted = 1 + static_cast<int>(m_random() % 5);
            for (int tries = 0; told < wanted && tries < 20; ++tries) {
                pollfd waiting{ends[0], POLLIN, 0};
                if (poll(&waiting, 1, 100) > 0) {
                    const int now = drain(ends[0], &confirmed);
                    if (now == 0) break; // the other end is closed
                    told += now;
                }
            }
            std::this_thread::sleep_for(microseconds(m_random() % 40000));
        }
        ::kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        told += drain(ends[0], &confirmed);
        close(ends[0]);
        if (!WIFSIGNALED(status) || WTERMSIG(status) != SIGKILL) return fail(path, "the writer ended by itself");
        m_confirmedStates += told;
        const bool hasJournal = std::filesystem::exists(path + "-journal");
        if (hasJournal) ++m_withJournal;

        if (confirmed < created) {
            // Killed before anything was promised: there may be no file, or one that is not yet a database.
            ++m_beforeFile;
            std::filesystem::remove(path + "-journal");
            std::filesystem::remove(path);
            return true;
        }
        const bool asWriter = m_turn % 2 == 0;
        if (!look(path, asWriter, states, confirmed, last)) return false;
        return true;
    }

    bool look(const std::string& path, bool asWriter, SampleStates& states, int confirmed, int& last)
    {
        try {
            const fio_File file = fio_File::Open(path.c_str(), asWriter, true);
            const int found = SampleStates::numberIn(file);
            if (found != confirmed && found != confirmed + 1) {
                return fail(path, "holds state " + std::to_string(found) + " where " + std::to_string(confirmed) +
                                      " was confirmed");
            }
            if (found > confirmed) ++m_beyond;
            states.advanceTo(found);
            if (found >= 0) states.check(file);
            last = found;
        } catch (const std::exception& failure) {
            return fail(path, std::string(asWriter ? "opened for writing: " : "opened for reading: ") + failure.what());
        }
        if (isNeeded(path + "-journal")) return fail(path, "the file at rest needs the journal beside it");
        return isIntact(path) || fail(path, "the tables are damaged");
    }

    const Settings& m_settings;
    std::mt19937 m_random;
    unsigned m_lastingSeed = 0;
    int m_lasting = created - 1;
    int m_turn = 0;
    int m_beforeFile = 0;
    int m_withJournal = 0;
    int m_beyond = 0;
    long long m_confirmedStates = 0;
};

} // namespace

int main(int count, char** arguments)
{
    Settings settings;
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string name = arguments[i];
        if (name == "--kills") settings.kills = std::atoi(arguments[i + 1]);
        else if (name == "--seed") settings.seed = static_cast<unsigned>(std::strtoul(arguments[i + 1], nullptr, 10));
        else if (name == "--folder") settings.folder = arguments[i + 1];
        else count = 0;
    }
    if (count % 2 == 0 || settings.kills < 1) {
        std::fprintf(stderr, "usage: crash_writer [--kills N] [--seed S] [--folder PATH]\n");
        return 2;
    }
    if (settings.folder.empty()) settings.folder = std::filesystem::temp_directory_path();
    std::string own = (settings.folder / "yld-crash-XXXXXX").string();
    if (!mkdtemp(own.data())) {
        std::fprintf(stderr, "%s: %s\n", own.c_str(), std::strerror(errno));
        return 2;
    }
    settings.folder = own;
    const int result = Trial(settings).run();
    std::error_code ignored;
    if (result == 0) std::filesystem::remove_all(own, ignored);
    return result;
}
