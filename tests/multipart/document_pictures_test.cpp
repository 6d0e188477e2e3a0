/*
 * Pictures that are documents, such as SVG: their readers may open files, so they are not asked.
 * Registers such a reader.
 */
#include "support/fake_player_engine.h"

#include <qvlsmilparser.h>

#include <QImage>
#include <QImageIOPlugin>
#include <QtPlugin>

#include <gtest/gtest.h>

#include <tuple>

namespace {

bool wasAsked = false;

class DocumentReader : public QImageIOHandler
{
public:
    bool canRead() const override { return device()->peek(4) == "<svg"; }
    bool read(QImage *) override { return wasAsked = true; }
    QVariant option(ImageOption) const override
    {
        wasAsked = true;
        return {};
    }
    bool supportsOption(ImageOption option) const override { return option == Size; }
};

} // namespace

class DocumentPlugin : public QImageIOPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "document_pictures.json")

public:
    Capabilities capabilities(QIODevice *device, const QByteArray &) const override
    {
        return device && device->peek(4) == "<svg" ? CanRead : Capabilities();
    }
    QImageIOHandler *create(QIODevice *device, const QByteArray &format) const override
    {
        auto *handler = new DocumentReader;
        handler->setDevice(device);
        handler->setFormat(format.isEmpty() ? QByteArray("svg") : format);
        return handler;
    }
};

Q_IMPORT_PLUGIN(DocumentPlugin)

TEST(DocumentPictures, HaveAReaderInThisTest)
{
    wasAsked = false;
    std::ignore = QImage::fromData(QByteArray("<svg/>"));
    EXPECT_TRUE(wasAsked);
}

TEST(DocumentPictures, AreNotGivenToTheirReader)
{
    wasAsked = false;
    MMS_COMP_SMILMultipartBodypart part;
    part.setContentType("image");
    part.setContentSubType("svg+xml");
    part.setBodyData(QByteArray("<svg/>"));
    EXPECT_FALSE(part.isMediaObjectSupported());
    EXPECT_FALSE(wasAsked);
}

TEST(DocumentPictures, GetNoSlidesOfMessagesWithoutSmil)
{
    wasAsked = false;
    // m-retrieve-conf with one part: image/svg+xml, in a mixed body.
    const QByteArray pdu = QByteArray::fromHex("8c848d9089018184a301") + QByteArray::fromHex("0e06")
        + QByteArray("image/svg+xml\0", 14) + "<svg/>";
    QvlMessage message;
    ASSERT_TRUE(message.receive(pdu).isOk());
    ASSERT_TRUE(message.present().isOk());
    EXPECT_EQ(message.slides().getTotalSlidesNum(), 0u);
    EXPECT_FALSE(wasAsked);
}

#include "document_pictures_test.moc"
