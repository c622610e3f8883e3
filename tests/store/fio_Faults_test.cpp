// The store on a disk that fails, in processes that are killed, and on files that others damage.

#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"
#include "test_disk.h"
#include "test_files.h"

#include <csignal>
#include <fstream>
#include <map>
#include <random>

namespace {

class sample_State : public pcl_Class<sample_State>
{
public:
    static constexpr const char* className = "sample_State";
    static constexpr unsigned classId = 0x7f000003;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("number", self.m_number);
        visit("values", self.m_values);
        visit("history", self.m_history);
    }

    int m_number = 0;
    pcl_Array<int> m_values;
    mrp_Container<sample_State> m_history;
};

using Ref = lnk_ShortCut<sample_State>;

// A reference to the root of a file, with the handle that keeps the file open.
struct Made : Ref
{
    Made(const Ref& root, const fio_File& file) : Ref(root), handle(file) {}
    fio_File handle;
};

constexpr int valueCount = 30000;

// One more state: a number, values that all tell it, and an entry in the history.
void change(const Ref& root, int number)
{
    const auto changed = root.fetchWritable();
    changed->m_number = number;
    const std::vector<int> values(valueCount, number);
    changed->m_values.assign(values.data(), valueCount);
    sample_State entry;
    entry.m_number = number;
    changed->m_history.append("state", Ref::create(root.file(), entry));
    root.replace(changed);
}

Made makeFile(const std::string& path)
{
    const fio_File file = fio_File::Create(path.c_str());
    sample_State state;
    state.m_history = mrp_Container<sample_State>::create(file.body());
    const Ref root = Ref::create(file.body(), state);
    file.body()->setRootObject(root.id());
    file.body()->save();
    return {root, file};
}

// Opens the file and checks that one state is there, whole. @return its number
int wholeState(const std::string& path, bool forWriting = false)
{
    const fio_File file = fio_File::Open(path.c_str(), forWriting, true);
    const Ref root(file.body(), file.body()->rootObject());
    const auto state = root.fetch();
    const int number = state->m_number;
    EXPECT_EQ(state->m_values.size(), number == 0 ? 0 : valueCount);
    for (int i = 0; i < state->m_values.size(); ++i) {
        if (state->m_values[i] != number) {
            ADD_FAILURE() << "value " << i << " is of another state";
            break;
        }
    }
    EXPECT_EQ(state->m_history.size(), number);
    for (int i = 0; i < state->m_history.size(); ++i) EXPECT_EQ(state->m_history.at(i).fetch()->m_number, i + 1);
    file.body()->close();
    return number;
}

} // namespace

class fio_Faults : public ::testing::TestWithParam<int>
{
};

TEST_P(fio_Faults, everyFailingDiskCallGivesAnExceptionAndLeavesTheLastSavedStateWhole)
{
    const ScratchFolder folder;
    FaultyDisk disk;
    int failures = 0;
    bool failed = true;
    for (int n = 1; failed; ++n) {
        const std::string path = folder.file("f" + std::to_string(n) + ".yld");
        int confirmed = -1;
        int tried = -1;
        disk.failCall(n, GetParam());
        try {
            tried = 0;
            const Made root = makeFile(path);
            confirmed = 0;
            for (int state = 1; state <= 3; ++state) {
                tried = state;
                change(root, state);
                root.file()->save();
                confirmed = state;
            }
            root.file()->close();
            // A failure that the library could work around, in reading ahead for one, is none for the caller.
        } catch (const exc_Exception& failure) {
            EXPECT_TRUE(disk.hasFailed()) << failure.what();
            EXPECT_NE(std::string(failure.what()), "");
            ++failures;
        }
        failed = disk.hasFailed();
        disk.failCall(0, SQLITE_OK);
        if (confirmed >= 0) {
            const int found = wholeState(path);
            EXPECT_GE(found, confirmed) << "call " << n;
            EXPECT_LE(found, tried) << "call " << n;
            EXPECT_EQ(wholeState(path, true), found) << "call " << n;
        }
        std::filesystem::remove(path);
        std::filesystem::remove(path + "-journal");
        ASSERT_LT(n, 5000) << "the scenario has no end";
    }
    EXPECT_GT(failures, 50);
}

INSTANTIATE_TEST_SUITE_P(inputOutputErrorAndFullDisk, fio_Faults, ::testing::Values(SQLITE_IOERR_WRITE, SQLITE_FULL),
                         [](const auto& which) { return which.param == SQLITE_FULL ? "full" : "error"; });

namespace {

// Writes down what goes to the disk, so that a test can tell what a power cut would leave of it.
class RememberingDisk : public TestDisk
{
public:
    struct Step
    {
        enum class Kind
        {
            WRITE,
            TRUNCATE,
            SYNC,
            REMOVE
        } kind;
        std::string file;
        long long offset; // or the new size
        std::string bytes;
    };
    std::vector<Step> steps;

private:
    int onDelete(const std::string& name) override { return add(Step::Kind::REMOVE, name, 0, {}); }
    int onWrite(const std::string& name, const char* bytes, std::size_t count, long long offset) override
    {
        return add(Step::Kind::WRITE, name, offset, std::string(bytes, count));
    }
    int onTruncate(const std::string& name, long long size) override
    {
        return add(Step::Kind::TRUNCATE, name, size, {});
    }
    int onSync(const std::string& name) override { return add(Step::Kind::SYNC, name, 0, {}); }

    int add(Step::Kind kind, const std::string& name, long long offset, std::string bytes)
    {
        steps.push_back({kind, std::filesystem::path(name).filename().string(), offset, std::move(bytes)});
        return SQLITE_OK;
    }
};

struct FileImage
{
    bool exists = false;
    std::string bytes;
};
using DiskImage = std::map<std::string, FileImage>;

void apply(const RememberingDisk::Step& step, std::size_t count, DiskImage& image)
{
    FileImage& file = image[step.file];
    const auto offset = static_cast<std::size_t>(step.offset);
    switch (step.kind) {
    case RememberingDisk::Step::Kind::WRITE:
        if (count > 0) file.exists = true;
        if (file.bytes.size() < offset + count) file.bytes.resize(offset + count, '\0');
        file.bytes.replace(offset, count, step.bytes, 0, count);
        break;
    case RememberingDisk::Step::Kind::TRUNCATE:
        file.bytes.resize(offset, '\0');
        break;
    case RememberingDisk::Step::Kind::REMOVE:
        file = {};
        break;
    case RememberingDisk::Step::Kind::SYNC:
        break;
    }
}

// What may be on the disk when the power goes before a step: all that was synced, and any part of what was not, down to
// sectors of a write and the removal of a file.
DiskImage afterPowerCut(const std::vector<RememberingDisk::Step>& steps, std::size_t cut, std::mt19937& random)
{
    std::map<std::string, std::size_t> synced;
    for (std::size_t i = 0; i < cut; ++i) {
        if (steps[i].kind == RememberingDisk::Step::Kind::SYNC) synced[steps[i].file] = i;
    }
    DiskImage image;
    const unsigned mood = random() % 4; // nothing more, everything, or each as it falls
    for (std::size_t i = 0; i < cut; ++i) {
        const RememberingDisk::Step& step = steps[i];
        const bool isSure = synced.count(step.file) != 0 && i < synced[step.file];
        std::size_t count = step.bytes.size();
        bool happens = isSure || mood == 1;
        if (!happens && mood >= 2) {
            happens = random() % 2 != 0;
            if (happens && random() % 3 == 0) count = std::min(count, random() % (count / 512 + 1) * 512);
        }
        if (happens) apply(step, count, image);
    }
    return image;
}

} // namespace

TEST(fio_Faults, powerCutAtAnyInstantLeavesTheLastConfirmedSaveWhole)
{
    const ScratchFolder folder;
    const std::string path = folder.file("p.yld");
    // How many steps had gone to the disk when a save was begun, and when it was confirmed.
    std::vector<std::size_t> begun;
    std::vector<std::size_t> confirmed;
    std::vector<RememberingDisk::Step> steps;
    {
        RememberingDisk disk;
        begun.push_back(0);
        const Made root = makeFile(path);
        confirmed.push_back(disk.steps.size());
        for (int state = 1; state <= 4; ++state) {
            begun.push_back(disk.steps.size());
            change(root, state);
            // A batch that goes before the save, and one with it.
            if (state % 2 == 0) {
                root.fetchWritable()->m_values.toDisk(root.file());
                root.file()->flushBulk();
            }
            root.file()->keepSuperseded(-1);
            root.file()->save();
            confirmed.push_back(disk.steps.size());
        }
        root.file()->close();
        steps = disk.steps;
    }
    std::filesystem::remove(path);

    std::mt19937 random(891);
    int older = 0;
    int newer = 0;
    for (std::size_t cut = confirmed[0]; cut <= steps.size(); ++cut) {
        const auto count = [cut](const std::vector<std::size_t>& marks) {
            return static_cast<int>(std::upper_bound(marks.begin(), marks.end(), cut) - marks.begin()) - 1;
        };
        for (int turn = 0; turn < 6; ++turn) {
            for (const auto& [name, file] : afterPowerCut(steps, cut, random)) {
                if (!file.exists) continue;
                std::ofstream(folder.file(name), std::ios::binary)
                    .write(file.bytes.data(), static_cast<std::streamsize>(file.bytes.size()));
            }
            int found = -1;
            ASSERT_NO_THROW(found = wholeState(path)) << "cut before step " << cut << ", turn " << turn;
            EXPECT_GE(found, count(confirmed)) << "cut before step " << cut << ", turn " << turn;
            EXPECT_LE(found, count(begun)) << "cut before step " << cut << ", turn " << turn;
            EXPECT_EQ(wholeState(path, true), found);
            older += found == count(confirmed) ? 1 : 0;
            newer += found > count(confirmed) ? 1 : 0;
            std::filesystem::remove(path);
            std::filesystem::remove(path + "-journal");
        }
    }
    std::printf("%zu instants: the confirmed state %d times, the next one %d times\n", steps.size() - confirmed[0] + 1,
                older, newer);
    EXPECT_GT(older, 100);
    EXPECT_GT(newer, 0);
}

TEST(fio_Faults, aFailedSaveCanBeTriedAgain)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    FaultyDisk disk;
    const Made root = makeFile(path);
    for (int n = 1; n <= 12; ++n) {
        change(root, n);
        disk.failCall(n, SQLITE_FULL);
        try {
            root.file()->save();
        } catch (const exc_Exception&) {
        }
        disk.failCall(0, SQLITE_OK);
        root.file()->save();
        EXPECT_EQ(wholeState(path), n);
    }
    root.file()->close();
}

TEST(fio_Faults, journalTakenAwayBetweenTwoSavesIsMadeAgain)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const Made root = makeFile(path);
    for (int n = 1; n <= 3; ++n) {
        EXPECT_TRUE(std::filesystem::remove(path + "-journal"));
        change(root, n);
        root.file()->save();
        EXPECT_EQ(wholeState(path), n);
    }
    root.file()->close();
    EXPECT_FALSE(std::filesystem::exists(path + "-journal"));
}

TEST(fio_Faults, borrowedBulkIsOnDiskWhenItsCallReturnsAndForgottenWhenItFails)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    FaultyDisk disk;
    const Made root = makeFile(path);
    std::vector<int> lent(valueCount, 1);
    const auto changed = root.fetchWritable();
    const auto lend = [&] {
        changed->m_values.adopt(fio_Buffer::borrow(lent.data(), lent.size() * sizeof(int)));
        changed->m_values.toDisk(root.file());
        changed->m_number = 1;
        sample_State entry;
        entry.m_number = 1;
        changed->m_history.append("state", Ref::create(root.file(), entry));
        root.replace(changed);
    };
    int failures = 0;
    for (int n = 1; failures < n; ++n) {
        disk.failCall(n, SQLITE_FULL);
        try {
            lend();
            break;
        } catch (const exc_Exception&) {
            ++failures;
        }
        // Nothing of it is left to be written when the memory is gone.
        EXPECT_FALSE(root.file()->extents().hasGathered()) << "call " << n;
    }
    EXPECT_GT(failures, 5);
    disk.failCall(0, SQLITE_OK);
    EXPECT_FALSE(root.file()->extents().hasGathered());
    std::fill(lent.begin(), lent.end(), 2);
    root.file()->save();
    root.file()->close();
    EXPECT_EQ(wholeState(path), 1);
}

TEST(fio_Faults, fileCutShortUnderAReaderGivesAnErrorAtTheNextRead)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    {
        const Made root = makeFile(path);
        for (int i = 1; i <= 20; ++i) {
            change(root, i);
            root.file()->save();
        }
        root.file()->close();
    }
    const int status = inOtherProcess([&path] {
        const fio_File file = fio_File::Open(path.c_str(), false, true);
        const Ref root(file.body(), file.body()->rootObject());
        const auto state = root.fetch();
        std::filesystem::resize_file(path, std::filesystem::file_size(path) / 3 / 16384 * 16384);
        EXPECT_THROW(state->m_values.data(), exc_Exception);
        EXPECT_THROW(state->m_history.at(5).fetch(), exc_Exception);
        std::filesystem::resize_file(path, 0);
        EXPECT_THROW(state->m_values.data(), exc_Exception);
    });
    EXPECT_EQ(status, 0);
}

TEST(fio_Faults, mutatedFilesEndInDataOrInOneException)
{
    const ScratchFolder folder;
    const std::string original = folder.file("a.yld");
    {
        const Made root = makeFile(original);
        for (int i = 1; i <= 5; ++i) {
            change(root, i);
            root.file()->save();
        }
        root.file()->close();
    }
    std::string bytes(std::filesystem::file_size(original), '\0');
    std::ifstream(original, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    const std::size_t pages = bytes.size() / 16384;
    std::mt19937 random(20261121);
    const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    int refused = 0;
    for (int turn = 0; turn < 600; ++turn) {
        std::string mutated = bytes;
        switch (turn % 6) {
        case 0:
            mutated[below(mutated.size())] ^= static_cast<char>(1u << below(8));
            break;
        case 1:
            // The schema and the tables' first pages, where a byte weighs most.
            for (int i = 0; i < 8; ++i) mutated[below(6 * 16384)] = static_cast<char>(random());
            break;
        case 2: {
            const std::size_t page = below(pages);
            for (std::size_t i = 0; i < 16384; ++i) mutated[page * 16384 + i] = static_cast<char>(random());
            break;
        }
        case 3:
            mutated.resize(below(mutated.size()));
            break;
        case 4: {
            const std::size_t one = below(pages) * 16384;
            const std::size_t other = below(pages) * 16384;
            for (std::size_t i = 0; i < 16384; ++i) std::swap(mutated[one + i], mutated[other + i]);
            break;
        }
        default:
            for (int i = 0; i < 200; ++i) mutated[below(mutated.size())] = static_cast<char>(random());
        }
        const std::string path = folder.file("m.yld");
        std::ofstream(path, std::ios::binary).write(mutated.data(), static_cast<std::streamsize>(mutated.size()));
        try {
            const fio_File file = fio_File::Open(path.c_str(), false, true);
            const auto state = Ref(file.body(), file.body()->rootObject()).fetch();
            if (!state->m_values.isEmpty()) state->m_values.data();
            if (state->m_history.isValid()) {
                for (int i = 0; i < state->m_history.size(); ++i) state->m_history.at(i).fetch();
            }
        } catch (const exc_Exception& failure) {
            EXPECT_EQ(std::string(failure.what()).compare(0, path.size(), path), 0) << failure.what();
            ++refused;
        }
        std::filesystem::remove(path);
    }
    EXPECT_GT(refused, 100);
}
