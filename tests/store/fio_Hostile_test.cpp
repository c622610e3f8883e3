// Files that lie, opened and walked whole: each ends in data or in one exception, soon, and in little memory.

#include "hostile_files.h"
#include "sample_states.h"
#include "walk_everything.h"

namespace {

// A small database with every kind of attribute, several states old.
std::string sampleDatabase()
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    {
        const fio_File file = fio_File::Create(path.c_str());
        SampleStates::plant(file);
        SampleStates states(5, 40000);
        for (int i = 0; i < 8; ++i) {
            states.advance(&file);
            file.body()->save();
        }
        states.check(file);
    }
    return bytesOf(path);
}

class fio_Hostile : public ::testing::Test
{
protected:
    // Every fourth file is opened for writing, which reads a little more.
    static void walk(unsigned number, const std::string& path)
    {
        WalkEverything::from<sample_Book>(path, number % 4 == 3);
    }

    void expectDataOrOneException(int count, void (Mutation::*mutate)(const std::string&), int leastRefused)
    {
        const std::string original = sampleDatabase();
        const Outcome outcome = openAll(
            count, [&](unsigned number, const std::string& path) { (Mutation(original, number).*mutate)(path); }, walk);
        std::printf("%d files: %d gave data, %d were refused, the slowest took %.3f s\n", count, outcome.data,
                    outcome.refused, outcome.slowest);
        for (const std::string& failure : outcome.failures) ADD_FAILURE() << failure;
        EXPECT_EQ(outcome.data + outcome.refused + static_cast<int>(outcome.failures.size()), count);
        // A walk that finds nothing wrong anywhere has not looked, one that refuses all has not read.
        EXPECT_GE(outcome.refused, leastRefused);
        EXPECT_GT(outcome.data, 0);
    }
};

} // namespace

TEST_F(fio_Hostile, theTrueFileIsWalkedWhole)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    putBytes(path, sampleDatabase());
    const WalkEverything walked = WalkEverything::from<sample_Book>(path);
    EXPECT_GT(walked.objects(), 10);
    EXPECT_GT(walked.values(), 1000);
}

TEST_F(fio_Hostile, bitsBytesPagesAndLengths) { expectDataOrOneException(800, &Mutation::bytes, 200); }
TEST_F(fio_Hostile, rowsThatLie) { expectDataOrOneException(600, &Mutation::rows, 100); }
TEST_F(fio_Hostile, tablesAndColumnsMissingOrOfOtherKinds) { expectDataOrOneException(300, &Mutation::schema, 50); }
TEST_F(fio_Hostile, countsCirclesAndLists) { expectDataOrOneException(300, &Mutation::structure, 50); }
TEST_F(fio_Hostile, databasesOfOthersUnderOurSign) { expectDataOrOneException(100, &Mutation::foreign, 30); }

// A few attacks that chance would not find. Each is told apart by the limits of memory and time.
class fio_Attack : public fio_Hostile
{
protected:
    // Applies statements to the sample database and demands that the file is then data or one exception.
    static void attack(const std::vector<std::string>& statements)
    {
        const std::string original = sampleDatabase();
        const Outcome outcome = openAll(
            2,
            [&](unsigned, const std::string& path) {
                putBytes(path, original);
                Liar liar(path);
                for (const std::string& sql : statements) ASSERT_TRUE(liar.run(sql)) << sql;
            },
            [](unsigned number, const std::string& path) { WalkEverything::from<sample_Book>(path, number == 1); });
        for (const std::string& failure : outcome.failures) ADD_FAILURE() << failure;
        EXPECT_EQ(outcome.data + outcome.refused, 2);
    }
    // Puts a table in place of another whose column is worked out by an expression.
    static std::vector<std::string> computed(const std::string& table, const std::string& column,
                                             const std::string& expression)
    {
        std::string all;
        const ScratchFolder folder;
        const std::string path = folder.file("a.yld");
        putBytes(path, sampleDatabase());
        Liar liar(path);
        std::string kept;
        for (const std::string& name : liar.columns(table)) {
            all += (all.empty() ? "\"" : ", \"") + name + "\"";
            if (name == column) all += " AS (" + expression + ")";
            else kept += (kept.empty() ? "\"" : ", \"") + name + "\"";
        }
        return {"ALTER TABLE " + table + " RENAME TO moved", "CREATE TABLE " + table + "(" + all + ")",
                "INSERT INTO " + table + "(" + kept + ") SELECT " + kept + " FROM moved"};
    }
};

TEST_F(fio_Attack, arrayOfOneExtentThatClaimsAGigabyte)
{
    // The last extent is there and has the right size; those before it are not.
    attack({"DELETE FROM extent", "INSERT INTO extent VALUES(256, zeroblob(4194304))",
            "UPDATE sample_Book SET labels = 1, \"labels.count\" = 268435456"});
}

TEST_F(fio_Attack, arrayThatEndsBeyondTheLastNumber)
{
    attack({"UPDATE sample_Book SET labels = 9223372036854775807, \"labels.count\" = 2000000"});
}

TEST_F(fio_Attack, attributeWorkedOutByAnExpressionOfAGigabyte)
{
    attack(computed("sample_Book", "title", "hex(zeroblob(150000000))"));
}

TEST_F(fio_Attack, attributeWorkedOutByAnExpressionWithoutEnd)
{
    attack(computed("sample_Book", "title",
                    "printf('%.*c', 50000, 'a') LIKE '%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%b'"));
}

TEST_F(fio_Attack, extentsWorkedOutByAnExpression) { attack(computed("extent", "bytes", "zeroblob(300000000)")); }

TEST_F(fio_Attack, headerWorkedOutByAnExpression) { attack(computed("header", "value", "hex(zeroblob(150000000))")); }

TEST_F(fio_Attack, keysWorkedOutByAnExpression) { attack(computed("entry", "key", "hex(zeroblob(150000000))")); }

TEST_F(fio_Attack, keysWorkedOutByAnExpressionWithoutEnd)
{
    attack(
        computed("entry", "key", "printf('%.*c', 50000, 'a') LIKE '%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%a%b'"));
}
