#include <Vantrel/PointerArray.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{

// The array never looks at what it points to.
CQoxRule* FakeRule(std::size_t number)
{
    static std::vector<long> rules(64);
    return reinterpret_cast<CQoxRule*>(&rules.at(number));
}

} // namespace

TEST(PointerArrayTest, StartsEmptyWithRoomForTenZeroPointers)
{
    const PointerArray array;
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.GetCapacity(), 10);
    for (std::int32_t index = 0; index < 10; ++index)
    {
        EXPECT_EQ(array[index], nullptr);
    }
}

TEST(PointerArrayTest, GrowsByOneFourSevenTenAndThenOneFifthMoreEachTime)
{
    PointerArray array;
    std::vector<std::int32_t> capacities;
    while (capacities.size() < 8)
    {
        const std::int32_t before = array.GetCapacity();
        array.Add(nullptr);
        if (array.GetCapacity() != before)
        {
            capacities.push_back(array.GetCapacity());
        }
    }
    // Steps of 1, 4, 7, 10, 12, 14, 16, 19.
    EXPECT_EQ(capacities, (std::vector<std::int32_t>{ 11, 15, 22, 32, 44, 58, 74, 93 }));
}

TEST(PointerArrayTest, NewStorageIsZeroBeyondTheSize)
{
    PointerArray array;
    for (int count = 0; count < 12; ++count)
    {
        array.Add(FakeRule(1));
    }
    for (std::int32_t index = array.GetSize(); index < array.GetCapacity(); ++index)
    {
        EXPECT_EQ(array[index], nullptr);
    }
}

TEST(PointerArrayTest, RemovingMovesTheTailDownAndTellsWhetherItWasFound)
{
    PointerArray array;
    for (std::size_t number = 0; number < 4; ++number)
    {
        array.Add(FakeRule(number));
    }
    EXPECT_TRUE(array.Remove(FakeRule(1)));
    EXPECT_FALSE(array.Remove(FakeRule(9)));
    ASSERT_EQ(array.GetSize(), 3);
    EXPECT_EQ(array[0], FakeRule(0));
    EXPECT_EQ(array[1], FakeRule(2));
    EXPECT_EQ(array[2], FakeRule(3));
}

TEST(PointerArrayTest, RemovingTheLastElementOnlyLowersTheSize)
{
    PointerArray array;
    array.Add(FakeRule(0));
    array.Add(FakeRule(1));
    EXPECT_TRUE(array.Remove(FakeRule(1)));
    EXPECT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array[1], FakeRule(1));
}

TEST(PointerArrayTest, RemovesOnlyTheFirstOfEqualElements)
{
    PointerArray array;
    array.Add(FakeRule(0));
    array.Add(FakeRule(0));
    EXPECT_TRUE(array.Remove(FakeRule(0)));
    EXPECT_TRUE(array.Contains(FakeRule(0)));
    EXPECT_TRUE(array.Remove(FakeRule(0)));
    EXPECT_FALSE(array.Contains(FakeRule(0)));
}

TEST(PointerArrayTest, CopiesDoNotShareStorage)
{
    PointerArray array;
    array.Add(FakeRule(0));
    PointerArray copy(array);
    copy.Add(FakeRule(1));
    EXPECT_EQ(array.GetSize(), 1);
    EXPECT_EQ(copy.GetSize(), 2);
    array = copy;
    EXPECT_EQ(array[1], FakeRule(1));
}

TEST(PointerArrayTest, AMillionAdditionsCopyInReasonableSteps)
{
    PointerArray array;
    int growths = 0;
    for (int count = 0; count < 1000000; ++count)
    {
        const std::int32_t before = array.GetCapacity();
        array.Add(nullptr);
        growths += array.GetCapacity() != before ? 1 : 0;
    }
    EXPECT_EQ(array.GetSize(), 1000000);
    EXPECT_LT(growths, 100);
}
