// Databases that lie, walked whole by a client of the public classes.

#include "hostile_files.h"
#include "public_job.h"
#include "public_walk.h"

namespace {

class Library
{
public:
    Library() { yld_initializeAPI(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { yld_finalizeAPI(); }
};

std::string jobBytes(void (*make)(const std::string&))
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    make(path);
    return bytesOf(path);
}

PublicWalk walkJob(void (*make)(const std::string&))
{
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    putBytes(path, jobBytes(make));
    const Library library;
    return PublicWalk::of(path);
}

class fio_PublicWalk : public ::testing::Test
{
protected:
    void expectDataOrOneException(int count, void (Mutation::*mutate)(const std::string&), int leastRefused)
    {
        // Half of the files are small ones, where a change is likelier to strike what is read first.
        const std::string originals[] = {jobBytes(makeWholeJob), jobBytes(makeSmallJob)};
        const Outcome outcome = openAll(
            count,
            [&](unsigned number, const std::string& path) {
                (Mutation(originals[number / 4 % 2], number).*mutate)(path);
            },
            [](unsigned number, const std::string& path) {
                const Library library;
                PublicWalk::of(path, number % 4 == 3);
            },
            false);
        std::printf("%d files: %d gave data, %d were refused, the slowest took %.3f s\n", count, outcome.data,
                    outcome.refused, outcome.slowest);
        for (const std::string& failure : outcome.failures) ADD_FAILURE() << failure;
        EXPECT_EQ(outcome.data + outcome.refused + static_cast<int>(outcome.failures.size()), count);
        EXPECT_GE(outcome.refused, leastRefused);
        EXPECT_GT(outcome.data, 0);
    }

    // The whole job, to which statements have been applied, opened for reading and for writing. @return how many of the
    // two gave data
    static int dataBehind(const std::vector<std::string>& statements)
    {
        const std::string original = jobBytes(makeWholeJob);
        const Outcome outcome = openAll(
            2,
            [&](unsigned, const std::string& path) {
                putBytes(path, original);
                Liar liar(path);
                for (const std::string& sql : statements) ASSERT_TRUE(liar.run(sql)) << sql;
            },
            [](unsigned number, const std::string& path) {
                const Library library;
                PublicWalk::of(path, number == 1);
            },
            false);
        for (const std::string& failure : outcome.failures) ADD_FAILURE() << failure;
        EXPECT_EQ(outcome.data + outcome.refused, 2);
        return outcome.data;
    }
};

} // namespace

TEST_F(fio_PublicWalk, theTrueJobIsWalkedWhole)
{
    const PublicWalk seen = walkJob(makeSmallJob);
    EXPECT_EQ(seen.nodes, 2 * 20);
    EXPECT_EQ(seen.elements, 2 * 4);
    EXPECT_GE(seen.members, 20 + 4 + 4);
    EXPECT_EQ(seen.frames, 6);
    EXPECT_EQ(seen.values, 6 * (20 + 32));
    EXPECT_EQ(seen.bulk, 6 * (20 * 3 + 32));
    // Of the nodal values twice all by node sets, one node, the instance, and those of no system; of the others all by
    // two element sets, one element, the instance, the type, and those of no system.
    // The points with history are sets of their own: two nodes, and two elements with 8 values each.
    EXPECT_EQ(seen.chosen, 6 * (2 * 20 + 1 + 20 + 20 + 2 * 32 + 8 + 32 + 32 + 32 + 2 * 1 + 2 * 8));
    // By the location, and by its position.
    EXPECT_EQ(seen.located, 2 * seen.values);
    EXPECT_EQ(seen.regions, 2 * 6);
    EXPECT_EQ(seen.curves, 2 * 12);
    EXPECT_EQ(seen.points, 2 * (12 * 50 + 2 * 20));
}

TEST_F(fio_PublicWalk, theWholeJobIsWalkedWhole)
{
    const PublicWalk small = walkJob(makeSmallJob);
    const PublicWalk seen = walkJob(makeWholeJob);
    // The plate, the placed plate, and the assembly's own.
    EXPECT_EQ(seen.nodes - small.nodes, 4 + 4 + 2);
    EXPECT_EQ(seen.elements - small.elements, 1 + 1 + 1);
    EXPECT_EQ(seen.elementClasses, 2 + 3);
    EXPECT_EQ(seen.datums, 4);
    // The two steps, and those of modes, of kinds, and of the substructure.
    EXPECT_EQ(seen.steps, 5);
    EXPECT_EQ(seen.dofs, 3 + 1);
    EXPECT_EQ(seen.loadCases, 1);
    EXPECT_EQ(seen.frames, 6 + 2 + 1);
    EXPECT_EQ(seen.pairs, 2);
    EXPECT_EQ(seen.fields, 6 * 2 + 10);
    EXPECT_EQ(seen.locations, seen.fields);
    // S, SS, P, D, EN, F, N, K, Y, W: the first with imaginary halves and quaternions, P with quaternions, D with
    // imaginary halves.
    EXPECT_EQ(seen.values - small.values, 16 + 8 + 1 + 3 + 16 + 32 + 20 + 1 + 1 + 1);
    EXPECT_EQ(seen.bulk - small.bulk, 16 * (2 * 6 + 4) + 8 * 3 + (4 + 4) + 2 * 3 * 3 + 16 + 32 + 20 * 3 + 6 + 6 + 1);
    // Those in layers once more, by their section points.
    EXPECT_EQ(seen.located, 2 * seen.values + 8);
    EXPECT_EQ(seen.regions - small.regions, 2);
    EXPECT_EQ(seen.curves - small.curves, 2);
    EXPECT_EQ(seen.points - small.points, 3 + 1);
    EXPECT_EQ(seen.rows - small.rows, 2 * 20);
}

TEST_F(fio_PublicWalk, walkEndsWhenPatienceDoes)
{
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    putBytes(path, jobBytes(makeSmallJob));
    const Library library;
    // Of the first bar's nodes each costs more than one.
    EXPECT_EQ(PublicWalk::of(path, false, 19).nodes, 0);
    EXPECT_EQ(PublicWalk::of(path, false, 10000).nodes, 2 * 20);
    EXPECT_EQ(PublicWalk::of(path, false, PublicWalk::endless).frames, 6) << "the database was closed in between";
}

TEST_F(fio_PublicWalk, bitsBytesPagesAndLengths) { expectDataOrOneException(1200, &Mutation::bytes, 200); }
TEST_F(fio_PublicWalk, rowsThatLie) { expectDataOrOneException(900, &Mutation::rows, 100); }
TEST_F(fio_PublicWalk, tablesAndColumnsMissingOrOfOtherKinds) { expectDataOrOneException(300, &Mutation::schema, 50); }
TEST_F(fio_PublicWalk, countsCirclesAndLists) { expectDataOrOneException(800, &Mutation::structure, 100); }
TEST_F(fio_PublicWalk, databasesOfOthersUnderOurSign) { expectDataOrOneException(60, &Mutation::foreign, 20); }

// What such files have brought to light.

TEST_F(fio_PublicWalk, setOfTheAssemblyWhoseKeySaysNothingIsRefused)
{
    EXPECT_EQ(dataBehind({"UPDATE entry SET key = '' WHERE key = 'Nboth'"}), 0);
}

TEST_F(fio_PublicWalk, setOfAMeshWhoseKeySaysNothingIsPassedOver)
{
    EXPECT_EQ(dataBehind({"UPDATE entry SET key = '' WHERE key = 'Eof the instance'"}), 2);
}

TEST_F(fio_PublicWalk, whereAListIsMissingNothingIsAddedToIt)
{
    // Without instances and steps nothing asks for the parts; what is to be added is refused.
    const std::vector<std::string> bare = {"UPDATE mshK_Assembly SET instances = 0, sets = 0, \"internal sets\" = 0",
                                           "UPDATE fld_Result SET steps = 0"};
    EXPECT_EQ(dataBehind(bare), 1);
    EXPECT_EQ(dataBehind({bare[0], bare[1], "UPDATE mshK_Model SET parts = 0"}), 1);
    EXPECT_EQ(dataBehind({"UPDATE fld_Result SET steps = 0"}), 1);
    EXPECT_EQ(dataBehind({"UPDATE mshK_Model SET steps = 0"}), 1);
}
