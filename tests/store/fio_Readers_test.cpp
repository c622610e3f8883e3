// One program writes and saves without pause while others open the file again and again, or keep it open and refresh.

#include "test_files.h"
#include "watched_file.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <thread>

namespace {

constexpr int fewestSaves = 200;
constexpr int mostSaves = 1000; // by which each reader has had its turns, also where it shares a processor with many
constexpr int enoughStates = 10;
constexpr unsigned patience = 180; // seconds, after which a process hangs

// What the processes tell each other.
struct Board
{
    volatile int written = 0;  // the last state whose save has returned
    volatile int finished = 0; // no more are coming
    struct Reader
    {
        volatile int states = 0; // how many different ones it saw
        volatile int lastState = 0;
        volatile int late = 0; // how often it saw less than what was saved before it opened
    } readers[4];
};

class SharedBoard
{
public:
    SharedBoard()
    {
        void* memory = mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) std::abort();
        m_board = new (memory) Board();
    }
    SharedBoard(const SharedBoard&) = delete;
    SharedBoard& operator=(const SharedBoard&) = delete;
    ~SharedBoard() { munmap(m_board, sizeof(Board)); }
    Board* operator->() const { return m_board; }

private:
    Board* m_board;
};

void expectAll(const int* values, long long count, int number, const char* what)
{
    ASSERT_EQ(count, watchedValueCount) << what;
    for (long long i = 0; i < count; ++i) ASSERT_EQ(values[i], number) << what << " at value " << i;
}

// Walks the root, both lists and their last arrays. @return the number of the state, of which every part must be
int walk(const fio_File& file)
{
    const auto root = watchedRoot(file).fetch();
    const int number = root->m_number;
    if (number > 0) {
        const int* values = root->m_values.data();
        expectAll(values, root->m_values.size(), number, "the root's values");
    }
    const int blocks = root->m_blocks.size();
    EXPECT_EQ(blocks, number * bulkBlocksBetweenSaves);
    for (int i = std::max(0, blocks - 2 * bulkBlocksBetweenSaves); i < blocks; ++i) {
        const int expected = i / bulkBlocksBetweenSaves + 1;
        EXPECT_EQ(root->m_blocks.key(i), std::to_string(expected));
        const auto block = root->m_blocks.at(i).fetch();
        EXPECT_EQ(block->m_number, expected);
        const int* values = block->m_values.data();
        expectAll(values, block->m_values.size(), expected, "a block's values");
    }
    const int middle = root->m_middle.size();
    EXPECT_EQ(middle, number);
    std::vector<int> order;
    for (int n = 1; n <= number; ++n) order.insert(order.begin() + placeOf(n), n);
    for (int i = 0; i < middle && i < number; ++i) {
        EXPECT_EQ(root->m_middle.key(i), std::to_string(order[static_cast<std::size_t>(i)])) << "entry " << i;
    }
    const auto current = root->m_current.fetch();
    EXPECT_EQ(current->m_number, number);
    const int* values = current->m_values.data();
    expectAll(values, current->m_values.size(), number, "the current values");
    return number;
}

void note(Board::Reader& reader, int number)
{
    EXPECT_GE(number, reader.lastState) << "went back in time";
    if (number != reader.lastState) reader.states = reader.states + 1;
    reader.lastState = number;
}

void readAgainAndAgain(const std::string& path, const SharedBoard& board, int which)
{
    Board::Reader& reader = board->readers[which];
    bool last = false;
    while (!last && !::testing::Test::HasFailure()) {
        last = board->finished;
        const int before = board->written;
        const fio_File file = fio_File::Open(path.c_str(), false, true);
        const int number = walk(file);
        if (number < before) reader.late = reader.late + 1;
        note(reader, number);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

void readAndRefresh(const std::string& path, const SharedBoard& board, int which)
{
    Board::Reader& reader = board->readers[which];
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    bool last = false;
    while (!last && !::testing::Test::HasFailure()) {
        last = board->finished;
        const int before = board->written;
        const int held = walk(file);
        // The state that was opened stays, whatever is saved meanwhile.
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        EXPECT_EQ(walk(file), held);
        const bool isNew = file.body()->refresh();
        const int number = walk(file);
        if (number < before) reader.late = reader.late + 1;
        EXPECT_EQ(isNew, number != held);
        note(reader, number);
    }
}

// Saves until each reader has seen some states. It waits for nobody: how many that takes is up to the machine.
void writeAll(const std::string& path, const SharedBoard& board)
{
    const fio_File file = fio_File::Open(path.c_str(), true, true);
    const auto haveSeenEnough = [&] {
        return std::all_of(std::begin(board->readers), std::end(board->readers),
                           [](const Board::Reader& reader) { return reader.states >= enoughStates; });
    };
    for (int number = 1; number <= fewestSaves || (number <= mostSaves && !haveSeenEnough()); ++number) {
        writeState(file, number);
        board->written = number;
    }
}

pid_t started(const std::function<void()>& function)
{
    const pid_t child = fork();
    if (child != 0) return child;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    alarm(patience);
    int status = 99;
    try {
        function();
        status = ::testing::Test::HasFailure() ? 98 : 0;
    } catch (const std::exception& failure) {
        fprintf(stderr, "in another process: %s\n", failure.what());
    }
    _exit(status);
}

int statusOf(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace

TEST(fio_Readers, seeWholeSavedStatesAndGoOnWhileTheWriterDoes)
{
    const ScratchFolder folder;
    const SharedBoard board;
    const std::string path = folder.file("watched.yld");
    makeWatchedFile(path);
    std::vector<pid_t> readers;
    for (int i = 0; i < 3; ++i) readers.push_back(started([&, i] { readAgainAndAgain(path, board, i); }));
    readers.push_back(started([&] { readAndRefresh(path, board, 3); }));
    EXPECT_EQ(statusOf(started([&] { writeAll(path, board); })), 0);
    board->finished = 1;
    for (const pid_t reader : readers) EXPECT_EQ(statusOf(reader), 0);
    // Nothing but the file is needed, so processes that share no memory are served the same way.
    EXPECT_FALSE(std::filesystem::exists(path + "-shm"));
    EXPECT_FALSE(std::filesystem::exists(path + "-wal"));
    EXPECT_GE(board->written, fewestSaves);
    for (const Board::Reader& reader : board->readers) {
        EXPECT_EQ(reader.lastState, board->written);
        EXPECT_EQ(reader.late, 0) << "states that were saved before the look were not seen";
        EXPECT_GE(reader.states, enoughStates);
    }
}

TEST(fio_Readers, stateThatWasOpenedStaysWhileEntriesGoIntoOnePlaceAgainAndAgain)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    makeWatchedFile(path);
    const fio_File writer = fio_File::Open(path.c_str(), true, true);
    const auto root = watchedRoot(writer).fetchWritable();
    root->m_middle.append("first", root->m_current);
    root->m_middle.append("last", root->m_current);
    watchedRoot(writer).replace(root);
    writer.body()->save();

    const fio_File reader = fio_File::Open(path.c_str(), false, true);
    const auto seen = watchedRoot(reader).fetch();
    // More than there are numbers between two neighbouring places.
    for (int i = 0; i < 1200; ++i) root->m_middle.insert(1, std::to_string(i), root->m_current);
    writer.body()->save();

    ASSERT_EQ(seen->m_middle.size(), 2);
    EXPECT_EQ(seen->m_middle.key(0), "first");
    EXPECT_EQ(seen->m_middle.key(1), "last");
    EXPECT_TRUE(reader.body()->refresh());
    const auto fresh = watchedRoot(reader).fetch();
    ASSERT_EQ(fresh->m_middle.size(), 1202);
    EXPECT_EQ(fresh->m_middle.key(0), "first");
    EXPECT_EQ(fresh->m_middle.key(1), "1199");
    EXPECT_EQ(fresh->m_middle.key(1200), "0");
    EXPECT_EQ(fresh->m_middle.key(1201), "last");
}
