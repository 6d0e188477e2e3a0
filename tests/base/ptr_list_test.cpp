/*
 * The pointer list: order, ranges, and ownership.
 */
#include "base/ptr_list.h"

#include <gmock/gmock.h>

#include <initializer_list>
#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

using testing::ElementsAre;

static_assert(!std::is_copy_constructible_v<QPtrList<int>>);
static_assert(!std::is_copy_assignable_v<QPtrList<int>>);

namespace {

/// Counts its instances.
class Item
{
public:
    explicit Item(int itemNumber) : number(itemNumber) { ++alive; }
    Item(const Item &) = delete;
    Item &operator=(const Item &) = delete;
    ~Item() { --alive; }

    const int number;
    static inline int alive = 0;
};

std::vector<int> numbers(const QPtrList<Item> &list)
{
    std::vector<int> result;
    for (const Item *item : list)
        result.push_back(item ? item->number : -1);
    return result;
}

void fill(QPtrList<Item> &list, std::initializer_list<int> itemNumbers)
{
    for (const int number : itemNumbers)
        list.append(new Item(number));
}

constexpr int outOfRangeOfThree[] = {-1, 3, 4, std::numeric_limits<int>::min(),
                                     std::numeric_limits<int>::max()};

} // namespace

/// Checks that every test deletes all items.
class QPtrListTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(Item::alive, 0); }
    void TearDown() override { EXPECT_EQ(Item::alive, 0); }
};

TEST_F(QPtrListTest, StartsEmptyAndOwnsNothing)
{
    const QPtrList<Item> list;
    EXPECT_FALSE(list.autoDelete());
    EXPECT_EQ(list.count(), 0);
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(list.at(0), nullptr);
    EXPECT_EQ(list.begin(), list.end());
}

TEST_F(QPtrListTest, AppendsAtTheEndAndPrependsAtTheFront)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    list.append(new Item(1));
    list.append(new Item(2));
    list.prepend(new Item(0));
    EXPECT_THAT(numbers(list), ElementsAre(0, 1, 2));
    EXPECT_EQ(list.count(), 3);
    EXPECT_FALSE(list.isEmpty());
}

TEST_F(QPtrListTest, PrependsToAnEmptyList)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    list.prepend(new Item(7));
    EXPECT_THAT(numbers(list), ElementsAre(7));
}

TEST_F(QPtrListTest, InsertsFromTheFrontToTheEnd)
{
    const struct
    {
        int index;
        std::vector<int> expected;
    } rows[] = {{0, {9, 0, 1, 2}}, {1, {0, 9, 1, 2}}, {2, {0, 1, 9, 2}}, {3, {0, 1, 2, 9}}};
    for (const auto &[index, expected] : rows) {
        QPtrList<Item> list;
        list.setAutoDelete(true);
        fill(list, {0, 1, 2});
        EXPECT_TRUE(list.insert(index, new Item(9)));
        EXPECT_EQ(numbers(list), expected);
    }
}

TEST_F(QPtrListTest, InsertsIntoAnEmptyListOnlyAtZero)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    auto item = std::make_unique<Item>(5);
    EXPECT_FALSE(list.insert(1, item.get()));
    EXPECT_FALSE(list.insert(-1, item.get()));
    EXPECT_TRUE(list.isEmpty());
    EXPECT_TRUE(list.insert(0, item.release()));
    EXPECT_THAT(numbers(list), ElementsAre(5));
}

TEST_F(QPtrListTest, LeavesARefusedItemToTheCaller)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    fill(list, {0, 1, 2});
    const Item refused(9);
    for (const int index :
         {-1, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_FALSE(list.insert(index, const_cast<Item *>(&refused))) << index;
    EXPECT_THAT(numbers(list), ElementsAre(0, 1, 2));
    EXPECT_EQ(Item::alive, 4);
}

TEST_F(QPtrListTest, ReturnsNullOutOfRange)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    fill(list, {0, 1, 2});
    EXPECT_EQ(list.at(0)->number, 0);
    EXPECT_EQ(list.at(2)->number, 2);
    for (const int index : outOfRangeOfThree)
        EXPECT_EQ(list.at(index), nullptr) << index;
}

TEST_F(QPtrListTest, RemovesAndDeletes)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    fill(list, {0, 1, 2});
    EXPECT_TRUE(list.remove(1));
    EXPECT_THAT(numbers(list), ElementsAre(0, 2));
    EXPECT_EQ(Item::alive, 2);
    EXPECT_TRUE(list.remove(1));
    EXPECT_TRUE(list.remove(0));
    EXPECT_EQ(Item::alive, 0);
    EXPECT_FALSE(list.remove(0));
}

TEST_F(QPtrListTest, RemovesNothingOutOfRange)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    fill(list, {0, 1, 2});
    for (const int index : outOfRangeOfThree)
        EXPECT_FALSE(list.remove(index)) << index;
    EXPECT_THAT(numbers(list), ElementsAre(0, 1, 2));
    EXPECT_EQ(Item::alive, 3);
}

TEST_F(QPtrListTest, TakesWithoutDeleting)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    fill(list, {0, 1, 2});
    const std::unique_ptr<Item> taken(list.take(1));
    ASSERT_NE(taken, nullptr);
    EXPECT_EQ(taken->number, 1);
    EXPECT_THAT(numbers(list), ElementsAre(0, 2));
    EXPECT_EQ(Item::alive, 3);
}

TEST_F(QPtrListTest, TakesNothingOutOfRange)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    fill(list, {0, 1, 2});
    for (const int index : outOfRangeOfThree)
        EXPECT_EQ(list.take(index), nullptr) << index;
    EXPECT_THAT(numbers(list), ElementsAre(0, 1, 2));
}

TEST_F(QPtrListTest, ClearsAndDeletes)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    fill(list, {0, 1, 2});
    list.clear();
    EXPECT_EQ(Item::alive, 0);
    EXPECT_TRUE(list.isEmpty());
    EXPECT_TRUE(list.autoDelete());
    list.clear();
    fill(list, {3});
    EXPECT_THAT(numbers(list), ElementsAre(3));
}

TEST_F(QPtrListTest, DeletesWithTheList)
{
    {
        QPtrList<Item> list;
        list.setAutoDelete(true);
        fill(list, {0, 1, 2});
        EXPECT_EQ(Item::alive, 3);
    }
    EXPECT_EQ(Item::alive, 0);
}

TEST_F(QPtrListTest, DeletesNothingWithoutAutoDelete)
{
    Item first(0);
    Item second(1);
    {
        QPtrList<Item> list;
        list.append(&first);
        list.append(&second);
        EXPECT_TRUE(list.remove(0));
        list.append(&first);
        list.clear();
        list.append(&second);
    }
    EXPECT_EQ(Item::alive, 2);
}

TEST_F(QPtrListTest, UsesTheSettingAtTheTimeOfDeletion)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    fill(list, {0, 1});
    list.setAutoDelete(false);
    const std::unique_ptr<Item> first(list.at(0));
    EXPECT_TRUE(list.remove(0));
    EXPECT_EQ(Item::alive, 2);
    list.setAutoDelete(true);
    EXPECT_TRUE(list.remove(0));
    EXPECT_EQ(Item::alive, 1);
}

TEST_F(QPtrListTest, StoresNullPointers)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    list.append(nullptr);
    list.prepend(nullptr);
    EXPECT_TRUE(list.insert(1, new Item(4)));
    EXPECT_THAT(numbers(list), ElementsAre(-1, 4, -1));
    EXPECT_EQ(list.take(0), nullptr);
    EXPECT_EQ(list.count(), 2);
    EXPECT_TRUE(list.remove(1));
    EXPECT_EQ(list.count(), 1);
    list.append(nullptr);
    list.clear();
    EXPECT_EQ(Item::alive, 0);
}

// The destructor of an item may read the list.
TEST_F(QPtrListTest, RemovesAnItemBeforeDeletingIt)
{
    struct Watcher
    {
        QPtrList<Watcher> *list;
        int *seen;
        ~Watcher() { *seen += list->count(); }
    };
    int seen = 0;
    QPtrList<Watcher> list;
    list.setAutoDelete(true);
    for (int i = 0; i < 3; ++i)
        list.append(new Watcher{&list, &seen});
    EXPECT_TRUE(list.remove(0));
    EXPECT_EQ(seen, 2);
    list.clear();
    EXPECT_EQ(seen, 2);
}

TEST_F(QPtrListTest, KeepsTheOrderOfManyItems)
{
    QPtrList<Item> list;
    list.setAutoDelete(true);
    for (int i = 0; i < 1000; ++i)
        list.append(new Item(i));
    for (int i = 999; i > 0; i -= 2)
        EXPECT_TRUE(list.remove(i));
    EXPECT_EQ(list.count(), 500);
    EXPECT_EQ(list.at(499)->number, 998);
}
