/*
 * Looks up parts and names in growing messages. All lookups have to be linear; the fit shows the
 * actual growth.
 */
#include "subjects.h"
#include "support/benchmarks.h"
#include "support/messages.h"
#include "support/presentations.h"

#include <memory>

namespace {

constexpr int SmallestCount = 10;
constexpr int LargestCount = 10'000;

template <typename Operation>
void addLookup(const char *name, Operation prepare)
{
    benchmark::RegisterBenchmark(name,
                                 [name, prepare](benchmark::State &state) {
                                     measure(state, name, prepare(int(state.range())));
                                     state.SetComplexityN(state.range());
                                 })
        ->RangeMultiplier(SmallestCount)
        ->Range(SmallestCount, LargestCount)
        ->Complexity();
}

auto messageOf(int parts)
{
    auto message = std::make_shared<MMS_COMP_SMILMultipart>();
    addPictures(message.get(), parts, parts, Names::Given);
    return message;
}

QString lastOf(int parts)
{
    return QStringLiteral("picture%1.jpg").arg(parts - 1);
}

auto findingPart(int parts)
{
    return Work{[message = messageOf(parts), name = lastOf(parts)] {
        return message->getBodyPartBySrc(name, MMS_COMP_SMILMultipartBodypart::Attachment)
            != nullptr;
    }};
}

auto namingPart(int parts)
{
    return Work{[message = messageOf(parts), name = lastOf(parts)] {
        return !message->createUniqueLocation(name).isEmpty();
    }};
}

auto namingSource(int slides)
{
    auto show = std::make_shared<QvlMessage>();
    fill(show.get(), {.slides = slides});
    return Work{[show, name = QStringLiteral("picture0.jpg")] {
        return !show->slides().createUniqueSrc(name).isEmpty();
    }};
}

} // namespace

void addLookupBenchmarks()
{
    addLookup("lookup/getBodyPartBySrc", findingPart);
    addLookup("lookup/createUniqueLocation", namingPart);
    addLookup("lookup/createUniqueSrc", namingSource);
}
