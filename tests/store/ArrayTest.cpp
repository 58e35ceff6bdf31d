// The growable array over several of its blocks.

#include "store/Array.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

TEST(Array, KeepsValuesAndOrderOverManyBlocks) {
    CArray<int> array;
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_THROW(array[0], std::invalid_argument);
    for (int i = 0; i < 5000; ++i) {
        array.Add(i);
        ASSERT_EQ(array.GetSize(), static_cast<std::size_t>(i) + 1);
    }
    int iNext = 0;
    for (const int i : std::as_const(array)) EXPECT_EQ(i, iNext++);
    EXPECT_EQ(iNext, 5000);
    EXPECT_EQ(array[1023], 1023);
    EXPECT_EQ(array[1024], 1024);
    EXPECT_EQ(array[4999], 4999);
    EXPECT_THROW(array[5000], std::invalid_argument);
    EXPECT_EQ(*std::find(array.begin(), array.end(), 2048), 2048);
}

TEST(Array, CopiesAreTheirOwnAndAValueOfTheArrayCanBeAdded) {
    CArray<int> array;
    for (int i = 0; i < 1024; ++i) array.Add(array.IsEmpty() ? 7 : array[0]);
    CArray<int> copy = array;
    copy[1023] = 8;
    copy.Add(copy[1023]);
    EXPECT_EQ(array.GetSize(), 1024u);
    EXPECT_EQ(array[1023], 7);
    EXPECT_EQ(copy[1024], 8);
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
    array.Add(9);
    EXPECT_EQ(array[0], 9);
}
