/*
 * An untrusted SMIL document, in a message that has a part for every location of the seeds: read,
 * normalized, written, and read again.
 */
#include "support/invariant.h"

#include <qvlsmilparser.h>

#include <cstdint>
#include <memory>

namespace {

const char *const locations[] = {"a", "b", "c.txt", "d.jpg", "e.amr", "f.3gp"};

void fill(MMS_COMP_SMILMultipart *body)
{
    for (const char *location : locations) {
        auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
        part->setContentLocation(QString::fromLatin1(location));
        body->appendBodypart(part.release());
    }
}

void checkObjects(const MMS_COMP_SMILData &slides, const MMS_COMP_SMILMultipart &body)
{
    for (unsigned int i = 0; i < slides.getTotalSlidesNum(); ++i) {
        for (unsigned int j = 0; j < slides.getMediaObjectCount(i); ++j) {
            const auto *part = slides.getMediaObject(i, j)->getData();
            require(part && body.holds(part), "every object that was read has its part");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), qsizetype(size));
    MMS_COMP_SMILMultipart body;
    fill(&body);
    MMS_COMP_SMILData slides(&body);
    MMS_COMP_SMILParser parser;
    const int result = parser.parse(text, &body, &slides);
    require(SmilResult::meaning(result) != nullptr, "every result has a meaning");
    if (result != SmilResult::Ok)
        return 0;
    require(slides.getRegionCount() >= 2, "a normalized layout has a text and an image region");
    checkObjects(slides, body);

    const QByteArray written = MMS_COMP_SMILParser::convertToSMILLang(&slides).toUtf8();
    MMS_COMP_SMILMultipart otherBody;
    fill(&otherBody);
    MMS_COMP_SMILData again(&otherBody);
    if (parser.parse(written, &otherBody, &again) != SmilResult::Ok)
        return 0; // values are not escaped and may contain markup
    require(again.getTotalSlidesNum() >= slides.getTotalSlidesNum(), "no slide is lost in writing");

    MMS_COMP_SMILMultipart copyBody;
    copyBody.copyFrom(body);
    {
        MMS_COMP_SMILData copy(&copyBody);
        slides.copyTo(&copy, &copyBody);
    }
    while (copyBody.getPartCount() > 0)
        copyBody.deletePart(0);
    return 0;
}
