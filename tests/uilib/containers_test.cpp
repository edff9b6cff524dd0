#include "uilib/core/containers.h"

#include <gtest/gtest.h>

#include <set>

using namespace UILib;

TEST(CUIPtrArray, KeepsItsOrderAndRefusesBadPlaces) {
    int values[4];
    CUIPtrArray array;
    EXPECT_TRUE(array.Add(&values[0]) && array.Add(&values[2]) && array.InsertAt(1, &values[1]));
    EXPECT_FALSE(array.InsertAt(4, &values[3]));
    EXPECT_FALSE(array.InsertAt(-1, &values[3]));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(array[i], &values[i]);
    EXPECT_EQ(array[3], nullptr);
    EXPECT_EQ(array[-1], nullptr);
    EXPECT_FALSE(array.Remove(1, 3));
    EXPECT_FALSE(array.Remove(1, 0));
    EXPECT_TRUE(array.Remove(0, 2));
    EXPECT_EQ(array.Find(&values[2]), 0);
    EXPECT_FALSE(array.RemoveItem(&values[0]));
}

TEST(CUIValArray, StoresCopiesOfRecords) {
    struct Record {
        int a;
        short b;
    };
    CUIValArray array(sizeof(Record));
    for (int i = 0; i < 100; ++i) {
        const Record record{i, static_cast<short>(-i)};
        array.Add(&record);
    }
    EXPECT_TRUE(array.Remove(0));
    EXPECT_FALSE(array.Remove(99));
    EXPECT_EQ(array.GetSize(), 99);
    EXPECT_EQ(static_cast<Record*>(array.GetAt(98))->b, -99);
    EXPECT_EQ(array.GetAt(99), nullptr);
}

TEST(CUIStringMap, FindsEveryKeyInOneBucketAndInMany) {
    for (int buckets : {1, 83}) {
        CUIStringMap map(buckets);
        int values[200];
        for (int i = 0; i < 200; ++i)
            EXPECT_TRUE(map.Insert(std::to_wstring(i), &values[i]));
        EXPECT_FALSE(map.Insert(L"7", nullptr));
        EXPECT_EQ(map.Set(L"7", &values[8]), &values[7]);
        EXPECT_EQ(map.Set(L"new", &values[0]), nullptr);
        for (int i = 0; i < 200; i += 2)
            EXPECT_TRUE(map.Remove(std::to_wstring(i)));
        EXPECT_FALSE(map.Remove(L"0"));
        EXPECT_EQ(map.GetSize(), 101);
        EXPECT_EQ(map.Find(L"7"), &values[8]);
        EXPECT_EQ(map.Find(L"8"), nullptr);
        std::set<std::wstring> seen;
        map.forEach([&](const CUIString& key, void*) { seen.emplace(key.GetData()); });
        EXPECT_EQ(seen.size(), 101u);
    }
}

TEST(CUIStringMap, HashesFromTheLastCharacterToTheFirst) {
    EXPECT_EQ(CUIStringMap::hash(L"ab"), uint32_t('b') * 33 + 'a');
    EXPECT_EQ(CUIStringMap::hash(L""), 0u);
}
