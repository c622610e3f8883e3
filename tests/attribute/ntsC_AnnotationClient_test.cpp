#include "platform/attribute/ntsC_AnnotationClient.h"

#include <gtest/gtest.h>

#include <thread>

TEST(ntsC_AnnotationClient, holdsAnnotationsUntilTheirContainerCloses)
{
    ntsC_AnnotationClient client;
    auto arrow = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = arrow;
    client.Hold("a", arrow);
    client.Hold("a", std::make_shared<int>(2));
    client.Hold("b", std::make_shared<int>(3));
    arrow.reset();
    EXPECT_EQ(client.NumHeld("a"), 2);
    EXPECT_EQ(client.NumHeld("b"), 1);
    EXPECT_FALSE(watched.expired());
    client.ContainerClosing("a", 0);
    EXPECT_EQ(client.NumHeld("a"), 0);
    EXPECT_EQ(client.NumHeld("b"), 1);
    EXPECT_TRUE(watched.expired());
    client.ContainerClosing("a", 0);
    EXPECT_EQ(client.NumHeld("b"), 1);
}

TEST(ntsC_AnnotationClient, eachThreadHasItsOwn)
{
    ntsC_AnnotationClient::Instance().Hold("a", std::make_shared<int>(1));
    std::thread([] { EXPECT_EQ(ntsC_AnnotationClient::Instance().NumHeld("a"), 0); }).join();
    EXPECT_EQ(ntsC_AnnotationClient::Instance().NumHeld("a"), 1);
    ntsC_AnnotationClient::Instance().ContainerClosing("a", 0);
}
