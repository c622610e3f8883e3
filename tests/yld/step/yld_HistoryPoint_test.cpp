#include "platform/sto/sto_History.h"
#include "platform/sto/sto_HistoryStep.h"
#include "platform/sto/sto_Step.h"
#include "result_model.h"

#include <utility>

namespace {

class yld_HistoryPointTest : public ResultModel
{
protected:
    yld_Node node(int label) { return instance().getNodeFromLabel(label); }
    yld_Element element(int label) { return instance().getElementFromLabel(label); }
    yld_HistoryPoint placed(yld_HistoryPoint point)
    {
        point.setInstance(instance());
        return point;
    }

    static std::string texts(const yld_HistoryPoint& point)
    {
        return std::string(point.shortText().cStr()) + " | " + point.longText().cStr();
    }
    static yld_Enum::yld_ResultPositionEnum quietPosition(const yld_HistoryPoint& point)
    {
        yld_Enum::yld_ResultPositionEnum position{};
        EXPECT_EQ(warningsOf([&] { position = point.position(); }), "");
        return position;
    }

    /// A stored curve, with the places of the model filled in.
    struct Place
    {
        int type;
        int classIndex = -1;
        int elementNumber = -1;
        int nodeNumber = -1;
        int integrationPoint = 0;
        int face = 0;
        int locationIndex = -1;
        bool onInstance = true;
    };
    sto_History stored(const Place& place, int storageType = 0)
    {
        const sto_HistoryStep store = step().step()->historyStep();
        fld_History like;
        like.m_type = place.type;
        like.m_label = "V";
        like.m_description = "a variable";
        like.m_classIndex = place.classIndex;
        like.m_elementNumber = place.elementNumber;
        like.m_nodeNumber = place.nodeNumber;
        like.m_integrationPoint = place.integrationPoint;
        like.m_face = place.face;
        like.m_locationIndex = place.locationIndex;
        like.m_storageType = storageType;
        if (place.onInstance) like.m_instance = instance().instance().shortCut();
        like.m_assembly = m_yld->rootAssembly().assembly().shortCut();
        return store.History(like, store.Clock());
    }
    yld_HistoryPoint pointOf(const Place& place)
    {
        return yld_HistoryPoint(stored(place), m_yld->rootAssembly().assembly());
    }
};

constexpr const char* unknownWarning = "Warning: Unknown History Output position.\n";

} // namespace

TEST_F(yld_HistoryPointTest, nowhere)
{
    const yld_HistoryPoint point;
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(point.position(), yld_Enum::UNDEFINED_POSITION); }), undefinedWarning);
    EXPECT_EQ(point.node().label(), -1);
    EXPECT_EQ(point.element().label(), -1);
    EXPECT_EQ(point.ipNumber(), 0);
    EXPECT_EQ(point.face(), yld_Enum::FACE_UNKNOWN);
    EXPECT_EQ(point.sectionPoint().number(), 0);
    EXPECT_STREQ(point.region().name().cStr(), "");
    EXPECT_STREQ(point.instance().name().cStr(), "");
    EXPECT_STREQ(point.assembly().name().cStr(), "");
    EXPECT_STREQ(point.name().cStr(), "");
    EXPECT_EQ(texts(point), "Unknown region | Output at unknown location.");
}

TEST_F(yld_HistoryPointTest, atANode)
{
    const yld_HistoryPoint point(node(50));
    EXPECT_EQ(quietPosition(point), yld_Enum::NODAL);
    EXPECT_EQ(point.node().label(), 50);
    EXPECT_EQ(texts(point), "Node .50 | Output at node 50");
    EXPECT_EQ(texts(placed(point)), "Node block-1.50 | Output at instance block-1 node 50");
}

TEST_F(yld_HistoryPointTest, atAnIntegrationPoint)
{
    const yld_HistoryPoint point(element(101), 1);
    EXPECT_EQ(quietPosition(point), yld_Enum::INTEGRATION_POINT);
    EXPECT_EQ(point.ipNumber(), 1);
    EXPECT_EQ(texts(placed(point)),
              "Element block-1.101 Int Point 1 | Output at instance block-1 element 101 integration point 1");
}

TEST_F(yld_HistoryPointTest, anElementWithoutAnIntegrationPointIsAWholeElement)
{
    for (const yld_HistoryPoint& point : {yld_HistoryPoint(element(101), 0), yld_HistoryPoint(element(101))}) {
        EXPECT_EQ(quietPosition(point), yld_Enum::WHOLE_ELEMENT);
        EXPECT_EQ(texts(placed(point)), "Element block-1.101 | Output at instance block-1 element 101");
    }
    EXPECT_EQ(quietPosition(yld_HistoryPoint(element(101), -3)), yld_Enum::WHOLE_ELEMENT);
}

TEST_F(yld_HistoryPointTest, atANodeOfAnElement)
{
    const yld_HistoryPoint point(element(101), node(10));
    EXPECT_EQ(quietPosition(point), yld_Enum::ELEMENT_NODAL);
    // The long text of an element leaves its node out.
    EXPECT_EQ(texts(placed(point)), "Element block-1.101 Node block-1.10 | Output at instance block-1 element 101");
}

TEST_F(yld_HistoryPointTest, atASectionPoint)
{
    const yld_SectionPoint top(2, "top");
    const yld_HistoryPoint point(element(301), 1, top);
    EXPECT_EQ(quietPosition(point), yld_Enum::INTEGRATION_POINT);
    EXPECT_EQ(point.sectionPoint().number(), 2);
    EXPECT_EQ(texts(placed(point)), "Element block-1.301 Int Point 1 Section Point 2 | Output at instance block-1 "
                                    "element 301 integration point 1 section point 2");
}

TEST_F(yld_HistoryPointTest, aSectionPointKeepsTheIntegrationPointEvenWithoutOne)
{
    const yld_HistoryPoint point(element(301), 0, yld_SectionPoint(1, "bottom"));
    EXPECT_EQ(quietPosition(point), yld_Enum::INTEGRATION_POINT);
    EXPECT_EQ(point.ipNumber(), 0);
    EXPECT_EQ(texts(placed(point)), "Element block-1.301 Int Point 0 Section Point 1 | Output at instance block-1 "
                                    "element 301 section point 1");
}

TEST_F(yld_HistoryPointTest, atAFace)
{
    const yld_HistoryPoint point(element(101), yld_Enum::FACE3);
    EXPECT_EQ(quietPosition(point), yld_Enum::ELEMENT_FACE);
    EXPECT_EQ(texts(placed(point)), "Element block-1.101 Face 13 | Output at instance block-1 element 101 face 13");
    EXPECT_EQ(quietPosition(yld_HistoryPoint(element(101), yld_Enum::FACE3, 0)), yld_Enum::ELEMENT_FACE);
    const yld_HistoryPoint atPoint(element(101), yld_Enum::SIDE2, 4);
    EXPECT_EQ(quietPosition(atPoint), yld_Enum::ELEMENT_FACE_INTEGRATION_POINT);
    EXPECT_EQ(texts(placed(atPoint)), "Element block-1.101 Face 1002 Int Point 4 | Output at instance block-1 element "
                                      "101 face 1002 integration point 4");
}

TEST_F(yld_HistoryPointTest, atARegion)
{
    yld_Assembly& assembly = m_yld->rootAssembly();
    const yld_Set& nodes = instance().NodeSet("some nodes", ints({10, 20}));
    const yld_Set& elements = instance().ElementSet("some elements", ints({101}));
    yld_Sequence<yld_Enum::yld_ElementFaceEnum> faces;
    faces.append(yld_Enum::FACE1);
    const yld_Set& surface = instance().Surface("a surface", ints({101}), faces);
    EXPECT_EQ(quietPosition(yld_HistoryPoint(nodes)), yld_Enum::WHOLE_REGION);
    EXPECT_EQ(texts(yld_HistoryPoint(nodes)), "NodeSet some nodes | Output at region some nodes");
    EXPECT_EQ(texts(yld_HistoryPoint(elements)), "ElementSet some elements | Output at region some elements");
    EXPECT_EQ(texts(yld_HistoryPoint(surface)), "Surface a surface | Output at region a surface");
    EXPECT_EQ(texts(yld_HistoryPoint(yld_Set())), "Region  | Output at unknown location.");
    const yld_Set& across = assembly.NodeSet("across", ::texts({"block-1"}), connectivity({{10}}));
    EXPECT_EQ(texts(placed(yld_HistoryPoint(across))), "NodeSet across | Output at instance block-1 region across");
}

TEST_F(yld_HistoryPointTest, atAnInstanceAndAtTheAssembly)
{
    const yld_HistoryPoint whole(instance());
    EXPECT_EQ(quietPosition(whole), yld_Enum::WHOLE_PART_INSTANCE);
    EXPECT_EQ(texts(whole), "Instance block-1 | Output at instance block-1");
    const yld_HistoryPoint model(m_yld->rootAssembly());
    EXPECT_EQ(quietPosition(model), yld_Enum::WHOLE_MODEL);
    EXPECT_STREQ(model.assembly().name().cStr(), "Assembly");
    EXPECT_EQ(texts(model), "Assembly Assembly | Output at assembly Assembly");
}

TEST_F(yld_HistoryPointTest, aNameAloneIsItsLongText)
{
    const yld_HistoryPoint point(yld_String("the left engine"));
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(point.position(), yld_Enum::UNDEFINED_POSITION); }), undefinedWarning);
    EXPECT_EQ(texts(point), "Unknown region | the left engine");
    EXPECT_EQ(texts(placed(point)), "Unknown region | the left engine");
}

TEST_F(yld_HistoryPointTest, equality)
{
    const yld_HistoryPoint at50(node(50));
    EXPECT_TRUE(at50 == yld_HistoryPoint(node(50)));
    EXPECT_FALSE(at50 != yld_HistoryPoint(node(50)));
    EXPECT_FALSE(at50 == yld_HistoryPoint(node(60)));
    // The instance plays no part; that the meshes differ does.
    EXPECT_TRUE(at50 == placed(at50));
    m_yld->rootAssembly().Instance("block-2", m_yld->parts().get("block"));
    EXPECT_FALSE(at50 == yld_HistoryPoint(m_yld->rootAssembly().instances().get("block-2").getNodeFromLabel(50)));

    const yld_HistoryPoint at1(element(101), 1);
    EXPECT_TRUE(at1 == yld_HistoryPoint(element(101), 1));
    EXPECT_FALSE(at1 == yld_HistoryPoint(element(102), 1));
    EXPECT_FALSE(at1 == yld_HistoryPoint(element(101), 2));
    EXPECT_FALSE(at1 == yld_HistoryPoint(element(101)));
    EXPECT_FALSE(at1 == yld_HistoryPoint(element(101), 1, yld_SectionPoint(1, "")));
    // Of a section point the number counts, its text does not.
    EXPECT_TRUE(at1 == yld_HistoryPoint(element(101), 1, yld_SectionPoint(0, "none")));
    EXPECT_TRUE(yld_HistoryPoint(element(301), 1, yld_SectionPoint(1, "bottom")) ==
                yld_HistoryPoint(element(301), 1, yld_SectionPoint(1, "")));
    // The same place by another road has another position.
    EXPECT_FALSE(yld_HistoryPoint(element(101), 0, yld_SectionPoint(0, "")) == yld_HistoryPoint(element(101), 0));

    EXPECT_FALSE(yld_HistoryPoint(element(101), yld_Enum::FACE1) == yld_HistoryPoint(element(101), yld_Enum::FACE2));
    EXPECT_FALSE(yld_HistoryPoint(yld_String("a")) == yld_HistoryPoint(yld_String("b")));
    EXPECT_TRUE(yld_HistoryPoint(yld_String("a")) == yld_HistoryPoint(yld_String("a")));
    const yld_Set first = instance().NodeSet("first", ints({10}));
    const yld_Set second = instance().NodeSet("second", ints({10}));
    EXPECT_TRUE(yld_HistoryPoint(first) == yld_HistoryPoint(first));
    EXPECT_FALSE(yld_HistoryPoint(first) == yld_HistoryPoint(second));
    EXPECT_TRUE(yld_HistoryPoint() == yld_HistoryPoint());
    EXPECT_FALSE(yld_HistoryPoint() == yld_HistoryPoint(m_yld->rootAssembly()));
    EXPECT_TRUE(yld_HistoryPoint(m_yld->rootAssembly()) == yld_HistoryPoint(m_yld->rootAssembly()));
}

TEST_F(yld_HistoryPointTest, wholeInstancesOfOneNameAreEqual)
{
    EXPECT_TRUE(yld_HistoryPoint(instance()) == yld_HistoryPoint(yld_Instance(instance())));
    // The names suffice, whatever else is there.
    const yld_Instance other("block-1", yld_Enum::THREE_D, sto_PartInstance(), instance().mesh());
    EXPECT_TRUE(yld_HistoryPoint(instance()) == yld_HistoryPoint(other));
    EXPECT_FALSE(yld_HistoryPoint(instance()) == yld_HistoryPoint(m_yld->rootAssembly()));
    // Nor do instances of other names differ in anything that is compared.
    const yld_Instance another("block-2", yld_Enum::THREE_D, sto_PartInstance(), instance().mesh());
    EXPECT_TRUE(yld_HistoryPoint(instance()) == yld_HistoryPoint(another));
}

TEST_F(yld_HistoryPointTest, copiesAreIndependent)
{
    const yld_HistoryPoint at(node(50));
    yld_HistoryPoint copy(at);
    copy.setInstance(instance());
    EXPECT_STREQ(at.instance().name().cStr(), "");
    yld_HistoryPoint assigned;
    assigned = copy;
    EXPECT_EQ(texts(assigned), "Node block-1.50 | Output at instance block-1 node 50");
}

// The element classes of the block are 0 HEX8 (101, 102), 1 TET4 (7, 5), 2 SHELL4 (301, 302).

TEST_F(yld_HistoryPointTest, storedAtANode)
{
    for (const int type : {1, 12}) {
        const yld_HistoryPoint point = pointOf({.type = type, .nodeNumber = 4});
        EXPECT_EQ(quietPosition(point), yld_Enum::NODAL) << type;
        EXPECT_TRUE(point == yld_HistoryPoint(node(50))) << type;
        EXPECT_EQ(texts(point), "Node block-1.50 | Output at instance block-1 node 50") << type;
    }
}

TEST_F(yld_HistoryPointTest, storedAtAnIntegrationPoint)
{
    const yld_HistoryPoint solid = pointOf({.type = 2, .classIndex = 0, .elementNumber = 1, .integrationPoint = 7});
    EXPECT_EQ(quietPosition(solid), yld_Enum::INTEGRATION_POINT);
    EXPECT_TRUE(solid == yld_HistoryPoint(element(102), 8));
    EXPECT_EQ(solid.sectionPoint().number(), 0);
    EXPECT_EQ(texts(solid),
              "Element block-1.102 Int Point 8 | Output at instance block-1 element 102 integration point 8");
    const yld_HistoryPoint shell =
        pointOf({.type = 2, .classIndex = 2, .elementNumber = 0, .integrationPoint = 0, .locationIndex = 1});
    EXPECT_EQ(shell.sectionPoint().number(), 2);
    EXPECT_STREQ(shell.sectionPoint().description().cStr(), "top");
    EXPECT_EQ(texts(shell), "Element block-1.301 Int Point 1 Section Point 2 | Output at instance block-1 element 301 "
                            "integration point 1 section point 2");
    // A location that the class lacks leaves a number without a text.
    const yld_HistoryPoint beyond =
        pointOf({.type = 2, .classIndex = 2, .elementNumber = 0, .integrationPoint = 0, .locationIndex = 7});
    EXPECT_EQ(beyond.sectionPoint().number(), 8);
    EXPECT_STREQ(beyond.sectionPoint().description().cStr(), "");
}

TEST_F(yld_HistoryPointTest, storedAtAFace)
{
    const yld_HistoryPoint solid =
        pointOf({.type = 3, .classIndex = 0, .elementNumber = 0, .integrationPoint = 3, .face = 5});
    EXPECT_EQ(quietPosition(solid), yld_Enum::ELEMENT_FACE);
    EXPECT_EQ(solid.face(), yld_Enum::FACE6);
    EXPECT_EQ(solid.ipNumber(), 0);
    EXPECT_EQ(texts(solid), "Element block-1.101 Face 16 | Output at instance block-1 element 101 face 16");
    const yld_HistoryPoint shell = pointOf({.type = 3, .classIndex = 2, .elementNumber = 1, .face = 1});
    EXPECT_EQ(shell.face(), yld_Enum::SIDE2);
    EXPECT_EQ(pointOf({.type = 3, .classIndex = 2, .elementNumber = 1, .face = 2}).face(), yld_Enum::FACE_UNKNOWN);
}

TEST_F(yld_HistoryPointTest, facesInThePlaneAreEdges)
{
    yld_Part& part = m_yld->Part("plate", yld_Enum::TWO_D_PLANAR, yld_Enum::DEFORMABLE_BODY);
    part.addNodes(ints({1, 2, 3, 4}), rows({{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
    part.addElements(ints({9}), connectivity({{1, 2, 3, 4}}), "QUAD4");
    const lnk_ShortCut<mshK_PartInstance> plate = m_yld->rootAssembly().Instance("plate-1", part).instance().shortCut();
    const auto faceOf = [&](int facet) {
        const sto_HistoryStep store = step().step()->historyStep();
        fld_History like;
        like.m_type = 3;
        like.m_instance = plate;
        like.m_classIndex = 0;
        like.m_elementNumber = 0;
        like.m_face = facet;
        return yld_HistoryPoint(store.History(like, store.Clock()), m_yld->rootAssembly().assembly());
    };
    EXPECT_EQ(faceOf(3).face(), yld_Enum::FACE4);
    EXPECT_STREQ(faceOf(3).shortText().cStr(), "Element plate-1.9 Face 14");
    // A solid has a fifth face, an element in the plane no fifth edge.
    EXPECT_EQ(faceOf(4).face(), yld_Enum::FACE_UNKNOWN);
    EXPECT_EQ(pointOf({.type = 3, .classIndex = 0, .elementNumber = 0, .face = 4}).face(), yld_Enum::FACE5);
}

TEST_F(yld_HistoryPointTest, storedAtAFaceIntegrationPoint)
{
    for (const int type : {16, 17}) {
        const yld_HistoryPoint point =
            pointOf({.type = type, .classIndex = 0, .elementNumber = 0, .integrationPoint = 2, .face = 0});
        EXPECT_EQ(quietPosition(point), yld_Enum::ELEMENT_FACE_INTEGRATION_POINT) << type;
        EXPECT_TRUE(point == yld_HistoryPoint(element(101), yld_Enum::FACE1, 3)) << type;
        EXPECT_EQ(texts(point), "Element block-1.101 Face 11 Int Point 3 | Output at instance block-1 element 101 face "
                                "11 integration point 3");
    }
}

TEST_F(yld_HistoryPointTest, storedAtAnElementNode)
{
    const yld_HistoryPoint point =
        pointOf({.type = 4, .classIndex = 2, .elementNumber = 0, .nodeNumber = 0, .locationIndex = 1});
    EXPECT_EQ(quietPosition(point), yld_Enum::ELEMENT_NODAL);
    EXPECT_TRUE(point == yld_HistoryPoint(element(301), node(10)));
    EXPECT_EQ(texts(point), "Element block-1.301 Node block-1.10 | Output at instance block-1 element 301");
}

TEST_F(yld_HistoryPointTest, storedAtAnElement)
{
    for (const int type : {5, 6}) {
        const yld_HistoryPoint point =
            pointOf({.type = type, .classIndex = 1, .elementNumber = 1, .integrationPoint = 3});
        EXPECT_EQ(quietPosition(point), yld_Enum::WHOLE_ELEMENT) << type;
        EXPECT_TRUE(point == yld_HistoryPoint(element(5))) << type;
    }
}

TEST_F(yld_HistoryPointTest, storedAtARegion)
{
    const yld_Set& set = instance().NodeSet("some nodes", ints({10, 20}));
    const sto_HistoryStep store = step().step()->historyStep();
    const sto_History history = store.FloatHistory(store.Clock(), fld_OutputPositionEnm::WHOLE_REGION,
                                                   instance().instance(), "V", "", set.set());
    const yld_HistoryPoint point(history, m_yld->rootAssembly().assembly());
    EXPECT_EQ(quietPosition(point), yld_Enum::WHOLE_REGION);
    EXPECT_EQ(texts(point), "NodeSet some nodes | Output at region some nodes");
    // The set is read over the meshes of the assembly.
    EXPECT_EQ(point.region().nodes("block-1").size(), 2);
    EXPECT_EQ(texts(pointOf({.type = 7})), "Region  | Output at unknown location.");
}

TEST_F(yld_HistoryPointTest, storedAtAnInstanceHasNoPosition)
{
    const yld_HistoryPoint point = pointOf({.type = 8});
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(point.position(), yld_Enum::UNDEFINED_POSITION); }), undefinedWarning);
    EXPECT_STREQ(point.instance().name().cStr(), "block-1");
    EXPECT_EQ(texts(point), "Unknown region | Output at instance block-1");
}

TEST_F(yld_HistoryPointTest, storedAtTheAssembly)
{
    const yld_HistoryPoint point = pointOf({.type = 9, .onInstance = false});
    EXPECT_EQ(quietPosition(point), yld_Enum::WHOLE_MODEL);
    EXPECT_TRUE(point == yld_HistoryPoint(m_yld->rootAssembly()));
    EXPECT_EQ(texts(point), "Assembly Assembly | Output at assembly Assembly");
}

TEST_F(yld_HistoryPointTest, storedAtAnUnknownPlaceHasANameAlone)
{
    for (const int type : {0, 10, 11, 13, 14, 15, 18, 99, -1}) {
        yld_HistoryPoint point;
        EXPECT_EQ(warningsOf([&] { point = pointOf({.type = type}); }), unknownWarning) << type;
        EXPECT_EQ(texts(point), "Unknown region | a variable : V") << type;
        EXPECT_STREQ(point.name().cStr(), "a variable : V");
        EXPECT_STREQ(point.instance().name().cStr(), "") << type;
    }
}

TEST_F(yld_HistoryPointTest, storedPlacesComeBackFromAnotherSession)
{
    // Every code, in both precisions.
    for (const int storageType : {0, 1}) {
        for (const int type : {1, 2, 3, 4, 5, 6, 8, 9, 12, 16, 17}) {
            stored(
                {.type = type, .classIndex = 0, .elementNumber = 1, .nodeNumber = 5, .integrationPoint = 1, .face = 2},
                storageType);
        }
    }
    reopen();
    const char* const expected[] = {"Node block-1.60",
                                    "Element block-1.102 Int Point 2",
                                    "Element block-1.102 Face 13",
                                    "Element block-1.102 Node block-1.60",
                                    "Element block-1.102",
                                    "Element block-1.102",
                                    "Unknown region",
                                    "Assembly Assembly",
                                    "Node block-1.60",
                                    "Element block-1.102 Face 13 Int Point 2",
                                    "Element block-1.102 Face 13 Int Point 2"};
    const sto_HistoryStep store = step().step()->historyStep();
    const int count = static_cast<int>(std::size(expected));
    ASSERT_EQ(store.numHistories(), 2 * count);
    for (int i = 0; i < 2 * count; ++i) {
        const yld_HistoryPoint point(store.history(i), m_yld->rootAssembly().assembly());
        EXPECT_STREQ(point.shortText().cStr(), expected[i % count]) << i;
        EXPECT_EQ(store.history(i).storageType(), i / count);
    }
}

TEST_F(yld_HistoryPointTest, storedOnTheAssemblysOwnMesh)
{
    m_yld->rootAssembly().addNodes(ints({7, 8}), rows({{0, 0, 9}, {1, 0, 9}}));
    const yld_HistoryPoint point = pointOf({.type = 1, .nodeNumber = 1, .onInstance = false});
    // The assembly stands in for the instance.
    EXPECT_EQ(texts(point), "Node Assembly.8 | Output at instance Assembly node 8");
    EXPECT_TRUE(point == yld_HistoryPoint(m_yld->rootAssembly().getNodeFromLabel(8)));
}

TEST_F(yld_HistoryPointTest, storedPlacesThatTheMeshHasNotAreRefused)
{
    EXPECT_EQ(failureOf([&] { pointOf({.type = 1, .nodeNumber = 12}); }), "Node index out of range.");
    EXPECT_EQ(failureOf([&] { pointOf({.type = 1, .nodeNumber = -1}); }), "Node index out of range.");
    EXPECT_EQ(failureOf([&] { pointOf({.type = 5, .classIndex = 0, .elementNumber = 2}); }),
              "Element index out of range.");
}
