#include "platform/store/fio_File.h"

#include "platform/text/exc_Exception.h"
#include "test_files.h"

#include <csignal>
#include <fstream>
#include <functional>
#include <numeric>
#include <sqlite3.h>

namespace {

// A sample class, and later declarations of the same one, as a program of another age would have them.
class sample_Thing : public pcl_Class<sample_Thing>
{
public:
    static constexpr const char* className = "sample_Thing";
    static constexpr unsigned classId = 0x7f000001;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("number", self.m_number);
        visit("wide", self.m_wide);
        visit("single", self.m_single);
        visit("real", self.m_real);
        visit("flag", self.m_flag);
        visit("text", self.m_text);
        visit("ints", self.m_ints);
        visit("reals", self.m_reals);
        visit("texts", self.m_texts);
        visit("friend", self.m_friend);
        visit("list", self.m_list);
        visit("labels", self.m_labels);
        visit("values", self.m_values);
        visit("precise", self.m_precise);
    }

    int m_number = 0;
    long long m_wide = 0;
    float m_single = 0.0f;
    double m_real = 0.0;
    bool m_flag = false;
    std::string m_text;
    std::vector<int> m_ints;
    std::vector<double> m_reals;
    std::vector<std::string> m_texts;
    lnk_ShortCut<sample_Thing> m_friend;
    mrp_Container<sample_Thing> m_list;
    pcl_Array<int> m_labels;
    pcl_Array<float> m_values;
    pcl_Array<double> m_precise;
};

class sample_LaterThing : public pcl_Class<sample_LaterThing>
{
public:
    static constexpr const char* className = "sample_Thing";
    static constexpr unsigned classId = 0x7f000001;
    static constexpr int classVersion = 2;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("text", self.m_text);
        visit("number", self.m_number);
        visit("added", self.m_added);
        visit("added bulk", self.m_bulk);
    }

    std::string m_text;
    int m_number = 0;
    int m_added = 42;
    pcl_Array<int> m_bulk;
};

using Ref = lnk_ShortCut<sample_Thing>;

// A reference to the root of a file, with the handle that keeps the file open.
struct Made : Ref
{
    Made(const Ref& root, const fio_File& file) : Ref(root), handle(file) {}
    fio_File handle;
};

std::string failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const exc_Exception& failure) {
        return failure.what();
    }
    return "no exception";
}

// A file with one thing at its root.
Made makeFile(const std::string& path, const sample_Thing& thing)
{
    const fio_File file = fio_File::Create(path.c_str());
    const Ref root = Ref::create(file.body(), thing);
    file.body()->setRootObject(root.id());
    file.body()->save();
    return {root, file};
}

Ref rootOf(const fio_File& file) { return Ref(file.body(), file.body()->rootObject()); }

} // namespace

TEST(fio_File, keepsEveryKindOfAttribute)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    {
        const fio_File file = fio_File::Create(path.c_str());
        sample_Thing thing;
        thing.m_number = -7;
        thing.m_wide = 1LL << 40;
        thing.m_single = 0.1f;
        thing.m_real = 1.0 / 3.0;
        thing.m_flag = true;
        thing.m_text = std::string("with \0 and 'quote'", 18);
        thing.m_ints = {3, 1, -2};
        thing.m_reals = {0.25, -1e300};
        thing.m_texts = {"", "a,b:c", "7:x,"};
        thing.m_friend = Ref::create(file.body(), sample_Thing());
        thing.m_list = mrp_Container<sample_Thing>::create(file.body());
        for (int i = 0; i < 40; ++i) {
            sample_Thing entry;
            entry.m_number = i;
            thing.m_list.append("entry " + std::to_string(i % 20), Ref::create(file.body(), entry));
        }
        const int labels[] = {5, 9, 2};
        thing.m_labels.assign(labels, 3);
        const float values[] = {1.5f, -2.5f};
        thing.m_values.assign(values, 2);
        const double precise[] = {1e-200};
        thing.m_precise.assign(precise, 1);
        file.body()->setRootObject(Ref::create(file.body(), thing).id());
        file.body()->save();
    }
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const auto thing = rootOf(file).fetch();
    EXPECT_EQ(thing->m_number, -7);
    EXPECT_EQ(thing->m_wide, 1LL << 40);
    EXPECT_EQ(thing->m_single, 0.1f);
    EXPECT_EQ(thing->m_real, 1.0 / 3.0);
    EXPECT_TRUE(thing->m_flag);
    EXPECT_EQ(thing->m_text, std::string("with \0 and 'quote'", 18));
    EXPECT_EQ(thing->m_ints, (std::vector<int>{3, 1, -2}));
    EXPECT_EQ(thing->m_reals, (std::vector<double>{0.25, -1e300}));
    EXPECT_EQ(thing->m_texts, (std::vector<std::string>{"", "a,b:c", "7:x,"}));
    EXPECT_EQ(thing->m_friend.fetch()->m_number, 0);
    ASSERT_EQ(thing->m_list.size(), 40);
    EXPECT_EQ(thing->m_list.key(25), "entry 5");
    EXPECT_EQ(thing->m_list.find("entry 5"), 5);
    EXPECT_EQ(thing->m_list.find("entry 20"), -1);
    EXPECT_EQ(thing->m_list.at(25).fetch()->m_number, 25);
    ASSERT_EQ(thing->m_labels.size(), 3);
    EXPECT_EQ(thing->m_labels[1], 9);
    ASSERT_EQ(thing->m_values.size(), 2);
    EXPECT_EQ(thing->m_values[1], -2.5f);
    EXPECT_EQ(thing->m_precise[0], 1e-200);
}

TEST(fio_File, fetchReadsNothingBehindTheObject)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    sample_Thing thing;
    const std::vector<float> values(1000, 1.0f);
    thing.m_values.assign(values.data(), 1000);
    makeFile(path, thing).file()->close();

    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const auto read = rootOf(file).fetch();
    EXPECT_EQ(read->m_values.size(), 1000);
    EXPECT_EQ(file.body()->database().extentReadCount(), 0);
    float part[2];
    read->m_values.read(500, 2, part);
    EXPECT_EQ(part[1], 1.0f);
    EXPECT_EQ(file.body()->database().extentReadBytes(), 8);
}

TEST(fio_File, arrayLargerThanOneExtentReadsWholeAndInPartsAcrossTheCut)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const long long count = 3 * static_cast<long long>(fio_Database::extentBytes / sizeof(int)) + 17;
    {
        std::vector<int> values(static_cast<std::size_t>(count));
        std::iota(values.begin(), values.end(), 0);
        sample_Thing thing;
        thing.m_labels.assign(values.data(), count);
        makeFile(path, thing).file()->close();
    }
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const auto thing = rootOf(file).fetch();
    const long long cut = static_cast<long long>(fio_Database::extentBytes / sizeof(int));
    int part[4];
    thing->m_labels.read(2 * cut - 2, 4, part);
    EXPECT_EQ(part[0], 2 * cut - 2);
    EXPECT_EQ(part[3], 2 * cut + 1);
    for (long long i = 0; i < count; i += 997) ASSERT_EQ(thing->m_labels[i], i);
    EXPECT_EQ(thing->m_labels[count - 1], count - 1);
}

TEST(fio_File, whatIsNotSavedIsGoneAfterClose)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const Made root = makeFile(path, sample_Thing());
    const auto changed = root.fetchWritable();
    changed->m_number = 5;
    root.replace(changed);
    EXPECT_EQ(root.fetch()->m_number, 5);
    EXPECT_TRUE(root.file()->hasChanges());
    root.file()->close();

    const fio_File file = fio_File::Open(path.c_str(), false, true);
    EXPECT_EQ(rootOf(file).fetch()->m_number, 0);
}

TEST(fio_File, aCopyFetchedForWritingChangesNothingUntilItIsPutBack)
{
    const ScratchFolder folder;
    const Made root = makeFile(folder.file("a.yld"), sample_Thing());
    const auto before = root.fetch();
    const auto changed = root.fetchWritable();
    changed->m_number = 5;
    EXPECT_EQ(root.fetch()->m_number, 0);
    root.replace(changed);
    EXPECT_EQ(root.fetch()->m_number, 5);
    EXPECT_EQ(before->m_number, 0);
    root.file()->close();
}

TEST(fio_File, anEditReachesTheFileWithTheNextSave)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const Made root = makeFile(path, sample_Thing());
    const auto before = root.fetch();
    root.edit([](sample_Thing& thing) {
        thing.m_number = 5;
        thing.m_text = "edited";
        const int labels[] = {8, 6};
        thing.m_labels.assign(labels, 2);
    });
    EXPECT_EQ(before->m_number, 0);
    EXPECT_EQ(root.fetch()->m_number, 5);
    root.file()->save();
    root.file()->close();

    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const auto read = rootOf(file).fetch();
    EXPECT_EQ(read->m_number, 5);
    EXPECT_EQ(read->m_text, "edited");
    ASSERT_EQ(read->m_labels.size(), 2);
    EXPECT_EQ(read->m_labels[0], 8);
    EXPECT_EQ(read->m_labels[1], 6);
    EXPECT_EQ(failureOf([&] { rootOf(file).edit([](sample_Thing& thing) { thing.m_number = 6; }); }),
              path + ": the database is open for reading only");
    EXPECT_EQ(rootOf(file).fetch()->m_number, 5);
}

TEST(fio_File, anEditThatRaisesLeavesTheObjectAsItWas)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    sample_Thing thing;
    thing.m_number = 3;
    const Made root = makeFile(path, thing);
    const auto before = root.fetch();
    const auto breakOff = [&root] {
        root.edit([](sample_Thing& changed) {
            changed.m_number = 4;
            throw exc_TextException("broken off");
        });
    };
    EXPECT_EQ(failureOf(breakOff), "broken off");
    EXPECT_EQ(root.fetch(), before);
    EXPECT_EQ(root.fetch()->m_number, 3);
    EXPECT_FALSE(root.file()->hasChanges());
    root.file()->save();
    root.file()->close();
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    EXPECT_EQ(rootOf(file).fetch()->m_number, 3);
}

TEST(fio_File, appendingGoesOnInPlaceWhileAnOlderCopyIsRead)
{
    const ScratchFolder folder;
    const Made root = makeFile(folder.file("a.yld"), sample_Thing());
    for (int i = 0; i < 5000; ++i) {
        const auto changed = root.fetchWritable();
        changed->m_labels.append(&i, 1);
        root.replace(changed);
    }
    const auto older = root.fetch();
    const auto one = root.fetchWritable();
    const auto other = root.fetchWritable();
    const int first = -1;
    const int second = -2;
    one->m_labels.append(&first, 1);
    other->m_labels.append(&second, 1);
    EXPECT_EQ(older->m_labels.size(), 5000);
    EXPECT_EQ(older->m_labels[4999], 4999);
    EXPECT_EQ(one->m_labels[5000], -1);
    EXPECT_EQ(other->m_labels[5000], -2);
    root.file()->close();
}

TEST(fio_File, extentsAndRowsThatASaveSupersedesGoWhenTheirTimeIsOver)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    sample_Thing thing;
    const int first[] = {1, 2, 3};
    thing.m_labels.assign(first, 3);
    const Made root = makeFile(path, thing);
    const auto rows = [&root](const char* sql) {
        fio_Statement count = root.file()->database().prepare(sql);
        return count.step() ? count.integer(0) : -1;
    };
    const auto change = [&root](int value) {
        const auto changed = root.fetchWritable();
        changed->m_labels.assign(&value, 1);
        root.replace(changed);
        root.file()->save();
    };
    change(3);
    EXPECT_EQ(rows("SELECT count(*) FROM extent"), 2);
    EXPECT_EQ(rows("SELECT count(*) FROM sample_Thing"), 2);
    EXPECT_EQ(rows("SELECT count(*) FROM superseded"), 2);
    root.file()->keepSuperseded(0);
    change(4);
    EXPECT_EQ(rows("SELECT count(*) FROM extent"), 1);
    EXPECT_EQ(rows("SELECT count(*) FROM sample_Thing"), 1);
    EXPECT_EQ(rows("SELECT count(*) FROM superseded"), 0);
    root.file()->close();
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    EXPECT_EQ(rootOf(file).fetch()->m_labels[0], 4);
}

TEST(fio_File, extentsThatNoSavedStateRefersToGoWhenTheNextWriterOpens)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const Made root = makeFile(path, sample_Thing());
    const std::vector<float> values(8u << 20, 1.0f); // 32 MiB: written at once, ahead of any save
    pcl_Array<float> orphan;
    orphan.assign(values.data(), static_cast<long long>(values.size()));
    orphan.toDisk(root.file());
    EXPECT_EQ(root.file()->extents().gatheredBytes(), 0u);
    root.file()->close();
    EXPECT_GT(std::filesystem::file_size(path), 30u << 20);

    const fio_File file = fio_File::Open(path.c_str(), true, true);
    const Ref again = rootOf(file);
    again.replace(again.fetchWritable());
    file.body()->save();
    fio_Statement count = file.body()->database().prepare("SELECT count(*) FROM extent");
    ASSERT_TRUE(count.step());
    EXPECT_EQ(count.integer(0), 0);
}

TEST(fio_File, whatACallerHasIsLentOnlyWhereItIsWrittenAtOnceAndInOnePiece)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const std::vector<int> many(4u << 20, 3); // 16 MiB: as much as is gathered
    const std::size_t bytes = many.size() * sizeof(int);
    int few[] = {1, 2, 3};
    const fio_Extents::Piece whole[] = {{many.data(), bytes}};
    const fio_Extents::Piece halves[] = {{many.data(), bytes / 2}, {many.data() + many.size() / 2, bytes / 2}};
    const fio_Extents::Piece less[] = {{many.data(), bytes - sizeof(int)}};
    const fio_Extents::Piece small[] = {{few, sizeof(int)}, {nullptr, 0}, {few + 1, 2 * sizeof(int)}};
    {
        const Made root = makeFile(path, sample_Thing());
        const fio_Buffer lent = fio_Extents::take(whole);
        EXPECT_TRUE(lent.isBorrowed());
        EXPECT_EQ(lent.data(), reinterpret_cast<const char*>(many.data()));
        const fio_Buffer joined = fio_Extents::take(halves);
        EXPECT_FALSE(joined.isBorrowed());
        EXPECT_EQ(joined.size(), bytes);
        EXPECT_FALSE(fio_Extents::take(less).isBorrowed());
        EXPECT_TRUE(fio_Extents::take({}).isEmpty());
        const fio_Buffer copied = fio_Extents::take(small);
        few[0] = 9;
        root.edit([&](sample_Thing& thing) {
            thing.m_labels.adopt(copied);
            thing.m_labels.toDisk(root.file());
            thing.m_friend = Ref::create(root.file(), sample_Thing());
        });
        EXPECT_GT(root.file()->extents().gatheredBytes(), 0u);
        root.fetch()->m_friend.edit([&](sample_Thing& thing) {
            thing.m_labels.adopt(lent);
            thing.m_labels.toDisk(root.file());
        });
        EXPECT_EQ(root.file()->extents().gatheredBytes(), 0u);
        root.file()->save();
    }
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const auto thing = rootOf(file).fetch();
    ASSERT_EQ(thing->m_labels.size(), 3);
    EXPECT_EQ(std::vector<int>(thing->m_labels.data(), thing->m_labels.data() + 3), (std::vector<int>{1, 2, 3}));
    const auto large = thing->m_friend.fetch();
    ASSERT_EQ(large->m_labels.size(), static_cast<long long>(many.size()));
    EXPECT_EQ(large->m_labels[0], 3);
    EXPECT_EQ(large->m_labels[large->m_labels.size() - 1], 3);
}

TEST(fio_File, openingForWritingChangesNothingUntilSomethingIsWritten)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    makeFile(path, sample_Thing());
    const auto before = std::filesystem::last_write_time(path);
    {
        const fio_File file = fio_File::Open(path.c_str(), true, true);
        rootOf(file).fetch();
    }
    EXPECT_EQ(std::filesystem::last_write_time(path), before);
}

TEST(fio_File, readerKeepsSeeingTheStateThatItOpened)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    sample_Thing thing;
    const int one = 1;
    thing.m_labels.assign(&one, 1);
    const Made root = makeFile(path, thing);
    const auto changeTo = [&root](int value) {
        const auto changed = root.fetchWritable();
        changed->m_number = value;
        changed->m_labels.assign(&value, 1);
        if (!changed->m_list.isValid()) changed->m_list = mrp_Container<sample_Thing>::create(root.file());
        sample_Thing entry;
        entry.m_number = value;
        changed->m_list.insert(0, "at the front", Ref::create(root.file(), entry));
        changed->m_list.append("at the end", Ref::create(root.file(), entry));
        root.replace(changed);
        root.file()->save();
    };
    changeTo(2);
    const fio_File reader = fio_File::Open(path.c_str(), false, true);
    changeTo(3);
    changeTo(4);
    const auto seen = rootOf(reader).fetch();
    EXPECT_EQ(seen->m_number, 2);
    EXPECT_EQ(seen->m_labels[0], 2);
    ASSERT_EQ(seen->m_list.size(), 2);
    EXPECT_EQ(seen->m_list.at(0).fetch()->m_number, 2);
    EXPECT_EQ(seen->m_list.at(1).fetch()->m_number, 2);
    EXPECT_TRUE(reader.body()->refresh());
    const auto now = rootOf(reader).fetch();
    EXPECT_EQ(now->m_number, 4);
    ASSERT_EQ(now->m_list.size(), 6);
    EXPECT_EQ(now->m_list.at(0).fetch()->m_number, 4);
    EXPECT_EQ(now->m_list.at(2).fetch()->m_number, 2);
}

TEST(fio_File, readerWhoseStateIsGoneIsToldSo)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    sample_Thing thing;
    const int one = 1;
    thing.m_labels.assign(&one, 1);
    const Made root = makeFile(path, thing);
    root.file()->keepSuperseded(0);
    const fio_File reader = fio_File::Open(path.c_str(), false, true);
    const auto seen = rootOf(reader).fetch();
    const fio_File late = fio_File::Open(path.c_str(), false, true);
    for (int i = 2; i <= 3; ++i) {
        const auto changed = root.fetchWritable();
        changed->m_labels.assign(&i, 1);
        root.replace(changed);
        root.file()->save();
    }
    const std::string told = path + ": another program has changed the database since it was read here; read it anew";
    EXPECT_EQ(failureOf([&] { seen->m_labels.data(); }), told);
    EXPECT_EQ(failureOf([&] { rootOf(late).fetch(); }), told);
    EXPECT_TRUE(late.body()->refresh());
    EXPECT_EQ(rootOf(late).fetch()->m_labels[0], 3);
}

TEST(fio_File, secondWriterOnOneFileIsFoundOutAndNothingIsMixed)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    makeFile(path, sample_Thing());
    const auto changeTo = [](const Ref& root, int value) {
        const auto changed = root.fetchWritable();
        changed->m_number = value;
        root.replace(changed);
        root.file()->save();
    };
    const fio_File first = fio_File::Open(path.c_str(), true, true);
    const fio_File second = fio_File::Open(path.c_str(), true, true);
    changeTo(rootOf(first), 1);
    EXPECT_EQ(failureOf([&] { changeTo(rootOf(second), 2); }),
              path + ": another program has saved the database since it was opened here; nothing was saved here");
    const fio_File third = fio_File::Open(path.c_str(), true, true);
    changeTo(rootOf(third), 3);
    EXPECT_EQ(failureOf([&] { changeTo(rootOf(first), 4); }),
              path + ": another program has begun to write the database; nothing was saved here");
    const fio_File reader = fio_File::Open(path.c_str(), false, true);
    EXPECT_EQ(rootOf(reader).fetch()->m_number, 3);
}

TEST(fio_File, manyInsertsAtOnePlaceKeepTheirOrder)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    {
        const fio_File file = fio_File::Create(path.c_str());
        sample_Thing thing;
        thing.m_list = mrp_Container<sample_Thing>::create(file.body());
        thing.m_list.append("first", Ref::create(file.body(), sample_Thing()));
        thing.m_list.append("last", Ref::create(file.body(), sample_Thing()));
        file.body()->setRootObject(Ref::create(file.body(), thing).id());
        file.body()->save();
        for (int i = 0; i < 200; ++i) {
            thing.m_list.insert(1, std::to_string(i), Ref::create(file.body(), sample_Thing()));
            if (i % 30 == 0) file.body()->save();
        }
        file.body()->save();
    }
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const auto root = rootOf(file).fetch();
    ASSERT_EQ(root->m_list.size(), 202);
    EXPECT_EQ(root->m_list.key(0), "first");
    for (int i = 0; i < 200; ++i) ASSERT_EQ(root->m_list.key(1 + i), std::to_string(199 - i));
    EXPECT_EQ(root->m_list.key(201), "last");
}

TEST(fio_File, killedWriterLosesOnlyWhatItHadNotSaved)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const int status = inOtherProcess([&path] {
        const Made root = makeFile(path, sample_Thing());
        for (int i = 1; i <= 20; ++i) {
            const auto changed = root.fetchWritable();
            changed->m_number = i;
            const std::vector<int> values(100000, i);
            changed->m_labels.assign(values.data(), 100000);
            root.replace(changed);
            if (i <= 15) root.file()->save();
            else changed->m_labels.toDisk(root.file());
        }
        kill(getpid(), SIGKILL);
    });
    ASSERT_EQ(status, -SIGKILL);
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const auto thing = rootOf(file).fetch();
    EXPECT_EQ(thing->m_number, 15);
    ASSERT_EQ(thing->m_labels.size(), 100000);
    for (int i = 0; i < 100000; ++i) ASSERT_EQ(thing->m_labels[i], 15);
}

TEST(fio_File, programThatKnowsMoreAttributesReadsWithDefaultsAndAddsColumnsOnWriting)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    sample_Thing thing;
    thing.m_number = 3;
    thing.m_text = "old";
    thing.m_real = 2.5;
    makeFile(path, thing).file()->close();
    {
        const fio_File file = fio_File::Open(path.c_str(), true, true);
        const lnk_ShortCut<sample_LaterThing> root(file.body(), file.body()->rootObject());
        const auto changed = root.fetchWritable();
        EXPECT_EQ(changed->m_text, "old");
        EXPECT_EQ(changed->m_number, 3);
        EXPECT_EQ(changed->m_added, 42);
        EXPECT_TRUE(changed->m_bulk.isEmpty());
        changed->m_added = 43;
        const int bulk[] = {1, 2};
        changed->m_bulk.assign(bulk, 2);
        root.replace(changed);
        file.body()->save();
    }
    {
        const fio_File file = fio_File::Open(path.c_str(), false, true);
        const lnk_ShortCut<sample_LaterThing> root(file.body(), file.body()->rootObject());
        EXPECT_EQ(root.fetch()->m_added, 43);
        EXPECT_EQ(root.fetch()->m_bulk[1], 2);
    }
    // What the later program does not know is kept for the earlier one.
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    EXPECT_EQ(rootOf(file).fetch()->m_real, 2.5);
    EXPECT_EQ(rootOf(file).fetch()->m_number, 3);
}

TEST(fio_File, readsWithPlainSqlAsThePageSays)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    sample_Thing thing;
    thing.m_number = 12;
    const float values[] = {0.5f, 0.25f};
    thing.m_values.assign(values, 2);
    makeFile(path, thing).file()->close();

    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    const auto single = [db](const char* sql) {
        std::string result = "nothing";
        sqlite3_exec(
            db, sql,
            [](void* into, int, char** row, char**) {
                *static_cast<std::string*>(into) = row[0] ? row[0] : "NULL";
                return 0;
            },
            &result, nullptr);
        return result;
    };
    EXPECT_EQ(single("PRAGMA application_id"), "2037146673");
    EXPECT_EQ(single("PRAGMA user_version"), "891");
    EXPECT_EQ(single("PRAGMA page_size"), "16384");
    EXPECT_EQ(single("SELECT \"Class Version\" FROM catalogue WHERE \"Class Name\" = 'sample_Thing'"), "1");
    EXPECT_EQ(single("SELECT \"Class Table\" FROM catalogue WHERE \"Class Id\" = 2130706433"), "sample_Thing");
    EXPECT_EQ(single("SELECT number FROM sample_Thing"), "12");
    EXPECT_EQ(single("SELECT \"values.count\" FROM sample_Thing"), "2");
    EXPECT_EQ(single("SELECT hex(bytes) FROM extent, sample_Thing WHERE id = \"values\""), "0000003F0000803E");
    sqlite3_close(db);
}

TEST(fio_File, emptyDatabaseStaysBelowOneMegabyte)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    makeFile(path, sample_Thing()).file()->close();
    EXPECT_LT(std::filesystem::file_size(path), 1u << 20);
}

TEST(fio_File, missingEmptyForeignAndTruncatedFilesGiveOneClearError)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const auto open = [&path] { fio_File::Open(path.c_str(), false, true); };
    EXPECT_EQ(failureOf(open), path + ": No such file or directory");
    std::ofstream(path).close();
    EXPECT_EQ(failureOf(open), path + ": the file is empty");
    std::ofstream(path) << "this is plain text, and long enough to be more than a header of any kind of database";
    EXPECT_EQ(failureOf(open), path + ": is not a results database of this library");
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_EQ(failureOf(open), path + ": is a directory");
    std::filesystem::remove(path);

    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
    sqlite3_exec(db, "CREATE TABLE t(x)", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    EXPECT_EQ(failureOf(open), path + ": is not a results database of this library");
    std::filesystem::remove(path);

    sample_Thing thing;
    const std::vector<int> values(100000, 1);
    thing.m_labels.assign(values.data(), 100000);
    makeFile(path, thing).file()->close();
    std::filesystem::resize_file(path, 20000);
    EXPECT_EQ(failureOf(open), path + ": the file is damaged");
}

TEST(fio_File, fileShortOfOneByteGivesOneClearError)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    makeFile(path, sample_Thing()).file()->close();
    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1);
    EXPECT_EQ(failureOf([&path] { fio_File::Open(path.c_str(), false, true); }), path + ": the file was cut short");
}

TEST(fio_File, lyingCountsAreRefusedBeforeMemoryIsTaken)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    sample_Thing thing;
    const int values[] = {1, 2, 3};
    thing.m_labels.assign(values, 3);
    makeFile(path, thing).file()->close();
    const auto lie = [&path](const char* sql) {
        sqlite3* db = nullptr;
        ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);
    };
    const auto readLabels = [&path] {
        const fio_File file = fio_File::Open(path.c_str(), false, true);
        rootOf(file).fetch()->m_labels.data();
    };
    lie("UPDATE sample_Thing SET \"labels.count\" = 4000000000");
    EXPECT_EQ(failureOf(readLabels),
              path + ": an array of 16000000000 bytes from extent 1 cannot be; the file is damaged");
    lie("UPDATE sample_Thing SET \"labels.count\" = -1");
    EXPECT_EQ(failureOf(readLabels), path + ": the value of sample_Thing.labels makes no sense; the file is damaged");
    lie("UPDATE sample_Thing SET \"labels.count\" = 9223372036854775807");
    EXPECT_EQ(failureOf(readLabels), path + ": the value of sample_Thing.labels makes no sense; the file is damaged");
    lie("UPDATE sample_Thing SET \"labels.count\" = 4");
    EXPECT_EQ(failureOf(readLabels), path + ": extent 1 should have 16 bytes but has 12; the file is damaged");
    lie("UPDATE sample_Thing SET \"labels.count\" = 3, labels = 77");
    EXPECT_EQ(failureOf(readLabels), path + ": an array of 12 bytes from extent 77 cannot be; the file is damaged");
    lie("UPDATE sample_Thing SET labels = 1, texts = '9:short,'");
    EXPECT_EQ(failureOf(readLabels), path + ": the value of sample_Thing.texts makes no sense; the file is damaged");
    lie("UPDATE sample_Thing SET texts = '', number = 3000000000");
    EXPECT_EQ(failureOf(readLabels), path + ": the value of sample_Thing.number makes no sense; the file is damaged");
    lie("UPDATE sample_Thing SET number = 3, oid = 50");
    EXPECT_EQ(failureOf(readLabels), path + ": object 1 of class sample_Thing is missing; the file is damaged");
    lie("DROP TABLE sample_Thing");
    EXPECT_EQ(failureOf(readLabels), path + ": has no object of class sample_Thing; the file is damaged");
}

TEST(fio_File, referenceIntoAClosedFileGivesAnError)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const Made root = makeFile(path, sample_Thing());
    root.file()->close();
    EXPECT_EQ(failureOf([&root] { root.fetch(); }), path + ": the database is closed");
}

TEST(fio_File, readOnlyHandleRefusesChanges)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    makeFile(path, sample_Thing()).file()->close();
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const Ref root = rootOf(file);
    const auto changed = root.fetchWritable();
    EXPECT_EQ(failureOf([&] { root.replace(changed); }), path + ": the database is open for reading only");
    EXPECT_EQ(failureOf([&] { file.body()->save(); }), path + ": the database is open for reading only");
}

TEST(fio_File, objectsBesideTheFileLiveInMemoryAlone)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    makeFile(path, sample_Thing()).file()->close();
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    sample_Thing thing;
    thing.m_number = 7;
    thing.m_friend = rootOf(file);
    const Ref apart = Ref::temporary(file.body(), thing);
    thing.m_number = 8;
    const Ref other = Ref::temporary(file.body(), thing);
    EXPECT_TRUE(apart.isValid());
    EXPECT_TRUE(apart.isTemporary());
    EXPECT_FALSE(rootOf(file).isTemporary());
    EXPECT_FALSE(apart == other);
    EXPECT_EQ(apart.fetch()->m_number, 7);
    EXPECT_EQ(Ref(apart).fetch(), apart.fetch());
    EXPECT_EQ(apart.fetch()->m_friend.fetch()->m_number, 0);
    EXPECT_EQ(failureOf([&] { apart.replace(apart.fetchWritable()); }),
              "sample_Thing: an object that no file has cannot be changed in one");
    EXPECT_FALSE(file.body()->hasChanges());

    // They can be kept with a stored object, under a name, until the file is closed.
    file.body()->keepTemporary(1, "first", apart);
    EXPECT_EQ(file.body()->temporaries(1).size(), 1u);
    file.body()->keepTemporary(1, "first", other);
    file.body()->keepTemporary(1, "second", apart);
    ASSERT_EQ(file.body()->temporaries(1).size(), 2u);
    EXPECT_EQ(Ref(file.body()->temporaries(1)[0]).fetch()->m_number, 8);
    EXPECT_TRUE(file.body()->temporaries(2).empty());
    file.body()->close();
    EXPECT_TRUE(file.body()->temporaries(1).empty());
    EXPECT_EQ(apart.fetch()->m_number, 7);
}

TEST(fio_File, storedObjectsCannotReferToThoseBesideTheFile)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const Made root = makeFile(path, sample_Thing());
    const auto changed = root.fetchWritable();
    changed->m_friend = Ref::temporary(root.file(), sample_Thing());
    root.replace(changed);
    EXPECT_EQ(failureOf([&] { root.file()->save(); }),
              "sample_Thing: a reference to an object that no file has cannot be kept");
}

TEST(fio_File, releaseForgetsWhatIsUnchangedAndKeepsWhatIsNot)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    {
        const fio_File file = fio_File::Create(path.c_str());
        sample_Thing thing;
        thing.m_list = mrp_Container<sample_Thing>::create(file.body());
        for (int i = 0; i < 10; ++i) thing.m_list.append(std::to_string(i), Ref::create(file.body(), sample_Thing()));
        file.body()->setRootObject(Ref::create(file.body(), thing).id());
        file.body()->save();
    }
    const fio_File file = fio_File::Open(path.c_str(), true, true);
    const auto root = rootOf(file).fetch();
    for (int i = 0; i < 10; ++i) root->m_list.at(i).fetch();
    const auto changed = root->m_list.at(3).fetchWritable();
    changed->m_number = 33;
    root->m_list.at(3).replace(changed);
    EXPECT_EQ(file.body()->loadedObjects(), 11u);
    root->m_list.release();
    EXPECT_EQ(file.body()->loadedObjects(), 2u);
    EXPECT_EQ(root->m_list.at(3).fetch()->m_number, 33);
}

TEST(fio_File, entriesInsertedInTheMiddleKeepTheirOrder)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    {
        const fio_File file = fio_File::Create(path.c_str());
        sample_Thing thing;
        thing.m_list = mrp_Container<sample_Thing>::create(file.body());
        thing.m_list.append("b", Ref::create(file.body(), sample_Thing()));
        thing.m_list.append("d", Ref::create(file.body(), sample_Thing()));
        file.body()->setRootObject(Ref::create(file.body(), thing).id());
        file.body()->save();
        thing.m_list.insert(0, "a", Ref::create(file.body(), sample_Thing()));
        thing.m_list.insert(2, "c", Ref::create(file.body(), sample_Thing()));
        thing.m_list.insert(4, "e", Ref::create(file.body(), sample_Thing()));
        file.body()->save();
    }
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    std::string keys;
    const auto root = rootOf(file).fetch();
    for (int i = 0; i < root->m_list.size(); ++i) keys += root->m_list.key(i);
    EXPECT_EQ(keys, "abcde");
}

TEST(fio_File, readerInAnotherProcessFindsTheNewStateByRefreshing)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    const Made root = makeFile(path, sample_Thing());
    const fio_File reader = fio_File::Open(path.c_str(), false, true);
    EXPECT_EQ(rootOf(reader).fetch()->m_number, 0);
    EXPECT_FALSE(reader.body()->refresh());
    const auto changed = root.fetchWritable();
    changed->m_number = 1;
    root.replace(changed);
    root.file()->save();
    EXPECT_EQ(rootOf(reader).fetch()->m_number, 0);
    EXPECT_TRUE(reader.body()->refresh());
    EXPECT_EQ(rootOf(reader).fetch()->m_number, 1);
    root.file()->close();
}
