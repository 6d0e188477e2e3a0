#include "list/order.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace MessageList {

namespace {

/// An order: less than 0 when @p a comes before @p b.
struct Order
{
    const char *name;
    bool (*hasValue)(const Entry &entry);
    int (*compare)(const Entry &a, const Entry &b);
};

int compared(qint64 a, qint64 b)
{
    return a < b ? -1 : a > b;
}

constexpr std::array orders{
    Order{"date", [](const Entry &entry) { return entry.date.has_value(); },
          [](const Entry &a, const Entry &b) { return compared(*a.date, *b.date); }},
    Order{
        "from", [](const Entry &entry) { return !entry.from.isEmpty(); },
        [](const Entry &a, const Entry &b) { return a.from.compare(b.from, Qt::CaseInsensitive); }},
    Order{"subject", [](const Entry &entry) { return !entry.subject.isEmpty(); },
          [](const Entry &a, const Entry &b) {
              return a.subject.compare(b.subject, Qt::CaseInsensitive);
          }},
    Order{"size", [](const Entry &entry) { return entry.error.isEmpty(); },
          [](const Entry &a, const Entry &b) { return compared(a.octets, b.octets); }},
    Order{"type", [](const Entry &entry) { return entry.type != 0; },
          [](const Entry &a, const Entry &b) { return compared(a.type, b.type); }},
};

} // namespace

QStringList orderNames()
{
    QStringList names;
    for (const Order &order : orders)
        names += QString::fromLatin1(order.name);
    return names;
}

void sort(std::vector<Entry> *entries, const QString &name, bool reverse)
{
    const auto order = std::ranges::find_if(
        orders, [&name](const Order &one) { return name == QLatin1StringView(one.name); });
    if (order == orders.end())
        return;
    std::ranges::stable_sort(*entries, [order, reverse](const Entry &a, const Entry &b) {
        if (!order->hasValue(a) || !order->hasValue(b))
            return order->hasValue(a) && !order->hasValue(b);
        return reverse ? order->compare(b, a) < 0 : order->compare(a, b) < 0;
    });
}

} // namespace MessageList
