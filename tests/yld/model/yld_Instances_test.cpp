#include "yld_Element.h"
#include "yld_Enum.h"
#include "yld_Frame.h"
#include "yld_Instance.h"
#include "yld_Part.h"
#include "yld_Repository.h"
#include "yld_SectionCategory.h"
#include "yld_Sequence.h"
#include "yld_SequenceElement.h"
#include "yld_SequenceNode.h"
#include "yld_Set.h"
#include "yld_String.h"
#include "yld_SubField.h"
#include "yld_Yld.h"

#include <gtest/gtest.h>

// The collections that the interface promises, each with every member: a member that does not compile for its
// element would otherwise be found by the first client who calls it. (The sequences of numbers, of texts and
// of those are compiled in the library itself.)
template class yld_Sequence<yld_ElementClass>;
template class yld_Sequence<yld_FieldOutput>;
template class yld_Sequence<yld_SectionPoint>;
template class yld_Sequence<yld_SubField>;
template class yld_Sequence<yld_SequenceElement>;
template class yld_Sequence<yld_SequenceNode>;
template class yld_Sequence<yld_Enum::yld_ElementFaceEnum>;
template class yld_Sequence<yld_Enum::yld_InvariantEnum>;
template class yld_Sequence<yld_Enum::yld_ProductAddOnEnum>;
template class yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>>;

template class yld_Repository<yld_String, int>;
template class yld_Repository<yld_String, yld_FieldOutput>;
template class yld_Repository<yld_String, yld_Instance>;
template class yld_Repository<yld_String, yld_LoadCase>;
template class yld_Repository<yld_String, yld_Part>;
template class yld_Repository<yld_String, yld_SectionCategory>;
template class yld_Repository<yld_String, yld_Set>;
template class yld_Repository<yld_String, yld_Yld>;
template class yld_Repository<int, int>;

namespace {

template<class T> class yld_SequenceOf : public testing::Test
{
};

using Elements =
    testing::Types<int, float, double, yld_String, yld_Sequence<int>, yld_Sequence<float>, yld_Sequence<double>,
                   yld_Sequence<yld_Sequence<float>>, yld_Sequence<yld_Sequence<double>>, yld_ElementClass,
                   yld_FieldOutput, yld_SectionPoint, yld_SubField, yld_SequenceElement, yld_SequenceNode,
                   yld_Enum::yld_ElementFaceEnum, yld_Enum::yld_InvariantEnum, yld_Enum::yld_ProductAddOnEnum,
                   yld_Sequence<yld_Enum::yld_ElementFaceEnum>>;
TYPED_TEST_SUITE(yld_SequenceOf, Elements);

} // namespace

TYPED_TEST(yld_SequenceOf, default_elements_come_and_go)
{
    const TypeParam values[3] = {};
    yld_Sequence<TypeParam> sequence(values, 3);
    EXPECT_EQ(sequence.size(), 3);
    EXPECT_GE(sequence.allocatedSize(), 3);
    sequence.append(values[0]);
    EXPECT_TRUE(sequence.insert(0, values[1]));
    EXPECT_EQ(sequence.size(), 5);
    EXPECT_TRUE(sequence.remove(4));
    EXPECT_EQ(sequence.size(), 4);
    EXPECT_EQ(sequence.slice(2, 100).size(), 2);
    sequence.append(sequence);
    EXPECT_EQ(sequence.size(), 8);
    sequence.clearAll();
    EXPECT_TRUE(sequence.isEmpty());
    EXPECT_EQ(sequence.allocatedSize(), 0);
}

TYPED_TEST(yld_SequenceOf, a_number_reserves_storage_and_no_element)
{
    const yld_Sequence<TypeParam> sequence(300);
    EXPECT_EQ(sequence.size(), 0);
    EXPECT_EQ(sequence.allocatedSize(), 300);
}

TYPED_TEST(yld_SequenceOf, a_copy_shares_until_it_is_written)
{
    const TypeParam values[3] = {};
    const yld_Sequence<TypeParam> original(values, 3);
    yld_Sequence<TypeParam> copy(original);
    EXPECT_EQ(&copy[1], &original[1]);
    EXPECT_TRUE(copy.isEqual(original)) << "what is shared is equal without being compared";
    EXPECT_NE(&copy.get(1), &original[1]);
    EXPECT_NE(&copy[1], &original[1]);
}

TYPED_TEST(yld_SequenceOf, an_absent_element_is_found_at_the_size)
{
    const TypeParam value{};
    const yld_Sequence<TypeParam> empty;
    EXPECT_EQ(empty.findFirst(value), 0);
    EXPECT_FALSE(empty.isMember(value));
}

namespace {

template<class V> class yld_RepositoryOf : public testing::Test
{
};

using Values =
    testing::Types<int, yld_FieldOutput, yld_Instance, yld_LoadCase, yld_Part, yld_SectionCategory, yld_Set, yld_Yld>;
TYPED_TEST_SUITE(yld_RepositoryOf, Values);

} // namespace

TYPED_TEST(yld_RepositoryOf, keeps_values_by_name)
{
    yld_Repository<yld_String, TypeParam> repository;
    EXPECT_TRUE(repository.insert("b", TypeParam()));
    EXPECT_TRUE(repository.insert("a", TypeParam()));
    EXPECT_FALSE(repository.insert("a", TypeParam()));
    const yld_Repository<yld_String, TypeParam> copy(repository);
    EXPECT_EQ(&copy.constGet("a"), &repository.constGet("a"));
    EXPECT_NE(&repository.get("a"), &copy.constGet("a"));
    EXPECT_TRUE(repository.CheckKey("b"));
    EXPECT_TRUE(repository.remove("b"));
    EXPECT_EQ(repository.size(), 1);
    EXPECT_EQ(copy.size(), 2);
    EXPECT_EQ(copy.keys()[1], "b");
}
