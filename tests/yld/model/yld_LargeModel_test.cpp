// Ten million nodes, and lists of ten million labels.

#include "model_files.h"

namespace {

constexpr int tenMillion = 10000000;
constexpr int chunk = 100000;

// A permutation of the numbers below 2^31 - 1: neither sorted nor without gaps, and none twice.
int labelOf(int i) { return static_cast<int>((i + 1) * 48271LL % 2147483647LL); }

} // namespace

TEST(yld_LargeModel, tenMillionNodesInAnyOrder)
{
    ModelFile model;
    {
        yld_Part& part = model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        for (int from = 0; from < tenMillion; from += chunk) {
            yld_Sequence<int> labels(chunk);
            yld_Sequence<yld_Sequence<float>> points(chunk);
            for (int i = from; i < from + chunk; ++i) {
                const float point[3] = {static_cast<float>(i), 1.0f, -1.0f};
                labels.append(labelOf(i));
                points.append(yld_Sequence<float>(point, 3));
            }
            part.addNodes(labels, points);
        }
    }
    model.reopen();
    yld_Part& part = model.part("P");
    ASSERT_EQ(part.nodes().size(), tenMillion);
    for (int i = 0; i < tenMillion; i += 9973) {
        const yld_Node node = part.getNodeFromLabel(labelOf(i));
        ASSERT_EQ(node.index(), i);
        ASSERT_EQ(node.coordinate(0), static_cast<float>(i));
    }
    EXPECT_EQ(part.nodes(tenMillion - 1).label(), labelOf(tenMillion - 1));
}

TEST(yld_LargeModel, tenMillionLabelsOfWhichOneIsBad)
{
    ModelFile model;
    yld_Part& part = model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    addTwoHexes(part);
    // The bad label is the last one looked at.
    yld_Sequence<int> labels(tenMillion);
    for (int i = 0; i < tenMillion - 1; ++i) labels.append(i % 12 + 1);
    labels.append(13);
    EXPECT_EQ(raised([&] { part.NodeSet("S", labels); }), "Invalid node label 13");
    EXPECT_EQ(part.nodeSets().size(), 0);
    EXPECT_EQ(part.part().mesh().set().length(), 0);
    EXPECT_EQ(part.nodes().size(), 12);
    // The same list with a good label is kept whole.
    labels.get(tenMillion - 1) = 12;
    EXPECT_EQ(part.NodeSet("S", labels).size(), tenMillion);
    // Elements go the same way.
    for (int i = 0; i < tenMillion; ++i) labels.get(i) = i % 2 + 1;
    labels.get(tenMillion - 1) = 3;
    EXPECT_EQ(raised([&] { part.ElementSet("S", labels); }), "Invalid element label 3");
    EXPECT_EQ(part.elementSets().size(), 0);
}
