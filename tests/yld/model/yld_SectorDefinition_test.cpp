#include "call_results.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Sto.h"
#include "result_model.h"

namespace {

using Points = std::initializer_list<std::initializer_list<float>>;

void expectAxis(const yld_Sequence<yld_Sequence<float>>& axis, Points points)
{
    ASSERT_EQ(axis.size(), static_cast<int>(points.size()));
    int row = 0;
    for (const auto& point : points) {
        ASSERT_EQ(axis[row].size(), static_cast<int>(point.size()));
        int column = 0;
        for (const float coordinate : point) EXPECT_EQ(axis[row][column++], coordinate);
        ++row;
    }
}

} // namespace

TEST(yld_SectorDefinition, withoutOneTheAxisHasTwoEmptyRows)
{
    const Library library;
    const ScratchFolder folder;
    yld_Yld& made = Yld("job", "", "", folder.file("job.yld").c_str());
    EXPECT_FALSE(made.hasSectorDefinition());
    expectAxis(made.sectorDefinition().symmetryAxis(), {{}, {}});
    EXPECT_EQ(made.sectorDefinition().numSymmetricSectors(), 0);
    made.close();
}

TEST(yld_SectorDefinition, comesBackFromAClosedFile)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    yld_Yld& made = Yld("job", "", "", path.c_str());
    made.setCyclicSymmetry(floats({0.5F, 1.0F, -2.0F}), floats({0.1F, 1.0F, 7.0F}), 12, texts({"Tie-1", "Tie-2"}));
    const yld_SectorDefinition asMade = made.sectorDefinition();
    made.save();
    made.close();
    expectAxis(asMade.symmetryAxis(), {{0.5F, 1.0F, -2.0F}, {0.1F, 1.0F, 7.0F}});

    EXPECT_EQ(inOtherProcess([&] {
                  const yld_Yld& again = openYld(path.c_str(), true);
                  EXPECT_TRUE(again.hasSectorDefinition());
                  expectAxis(again.sectorDefinition().symmetryAxis(), {{0.5F, 1.0F, -2.0F}, {0.1F, 1.0F, 7.0F}});
                  EXPECT_EQ(again.sectorDefinition().numSymmetricSectors(), 12);
                  EXPECT_EQ(again.sto().model("Default Model").cyclicSymmTieConstraints(),
                            (std::vector<std::string>{"Tie-1", "Tie-2"}));
              }),
              0);
}

TEST(yld_SectorDefinition, aSecondDefinitionReplacesTheFirst)
{
    const Library library;
    const ScratchFolder folder;
    yld_Yld& made = Yld("job", "", "", folder.file("job.yld").c_str());
    made.setCyclicSymmetry(floats({0, 0, 0}), floats({0, 0, 1}), 12, texts({"Tie-1"}));
    made.setCyclicSymmetry(floats({1, 0, 0}), floats({1, 0, 1}), 3);
    expectAxis(made.sectorDefinition().symmetryAxis(), {{1, 0, 0}, {1, 0, 1}});
    EXPECT_EQ(made.sectorDefinition().numSymmetricSectors(), 3);
    EXPECT_TRUE(made.sto().model("Default Model").cyclicSymmTieConstraints().empty());
    made.close();
}

TEST(yld_SectorDefinition, whatIsNoSymmetryIsRefusedAndChangesNothing)
{
    const Library library;
    const ScratchFolder folder;
    yld_Yld& made = Yld("job", "", "", folder.file("job.yld").c_str());
    const auto define = [&](const yld_Sequence<float>& start, const yld_Sequence<float>& end, int sectors) {
        return failureOf([&] { made.setCyclicSymmetry(start, end, sectors); });
    };
    EXPECT_EQ(define(floats({0, 0}), floats({0, 0, 1}), 4), "A point of the symmetry axis needs 3 coordinates.");
    EXPECT_EQ(define(floats({0, 0, 0}), floats({0, 0, 1, 0}), 4), "A point of the symmetry axis needs 3 coordinates.");
    EXPECT_EQ(define(floats({0, 0, 1}), floats({0, 0, 1}), 4), "The points of the symmetry axis coincide.");
    EXPECT_EQ(define(floats({0, 0, 0}), floats({0, 0, 1}), 0), "The number of sectors must be positive.");
    EXPECT_FALSE(made.hasSectorDefinition());
    made.close();
}
