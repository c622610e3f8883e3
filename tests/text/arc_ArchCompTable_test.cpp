#include "platform/text/arc_ArchCompTable.h"

#include <gtest/gtest.h>

TEST(arc_ArchCompTable, gives_back_what_was_entered)
{
    EXPECT_EQ(arc_ArchCompTable::Find(-5), nullptr);
    arc_ArchCompTable::InsertEntry(-5, arc_LayoutEntry::ofThisMachine("one"));
    ASSERT_NE(arc_ArchCompTable::Find(-5), nullptr);
    EXPECT_STREQ(arc_ArchCompTable::Find(-5)->name, "one");
    EXPECT_EQ(arc_ArchCompTable::Find(-5)->pointerSize, sizeof(void*));
    const int probe = 1;
    EXPECT_EQ(arc_ArchCompTable::Find(-5)->littleEndian, *reinterpret_cast<const char*>(&probe) == 1);
}

TEST(arc_ArchCompTable, a_second_entry_replaces_the_first)
{
    arc_ArchCompTable::InsertEntry(-6, arc_LayoutEntry::ofThisMachine("one"));
    arc_ArchCompTable::InsertEntry(-6, arc_LayoutEntry::ofThisMachine("two"));
    EXPECT_STREQ(arc_ArchCompTable::Find(-6)->name, "two");
}
