/*
 * No clip makes the player open a connection: playlists and movies that refer to an address on this
 * machine, alone and before valid frames, under every type that a child process decodes.
 */
#include "gui/clips/clip_test.h"

#include <QDir>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtEndian>
#include <QUdpSocket>

#include <algorithm>

namespace {

/// Listens on the loopback interface, for connections and for datagrams.
class Listener
{
public:
    Listener()
    {
        m_isListening = m_server.listen(QHostAddress::LocalHost)
            && m_datagrams.bind(QHostAddress::LocalHost, m_server.serverPort());
    }

    bool isListening() const { return m_isListening; }
    quint16 port() const { return m_server.serverPort(); }

    /// True if anybody sent something, or tried to.
    bool hasHeard()
    {
        return m_server.waitForNewConnection(0) || m_server.hasPendingConnections()
            || m_datagrams.hasPendingDatagrams();
    }

private:
    QTcpServer m_server;
    QUdpSocket m_datagrams;
    bool m_isListening = false;
};

QByteArray withPort(QByteArray text, quint16 port)
{
    return text.replace("PORT", QByteArray::number(port));
}

constexpr char Hls[] = "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:10\n#EXTINF:10,\n"
                       "http://127.0.0.1:PORT/a.ts\n#EXT-X-ENDLIST\n";

constexpr char HlsMaster[] = "#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=100000\n"
                             "http://127.0.0.1:PORT/a.m3u8\n";

constexpr char Dash[] =
    "<?xml version=\"1.0\"?>\n<MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\" type=\"static\" "
    "mediaPresentationDuration=\"PT10S\" minBufferTime=\"PT1S\" "
    "profiles=\"urn:mpeg:dash:profile:isoff-on-demand:2011\"><Period><AdaptationSet "
    "mimeType=\"audio/mp4\"><Representation id=\"a\" bandwidth=\"1000\"><BaseURL>"
    "http://127.0.0.1:PORT/a.mp4</BaseURL><SegmentBase/></Representation></AdaptationSet>"
    "</Period></MPD>\n";

constexpr char Sdp[] = "v=0\r\no=- 0 0 IN IP4 127.0.0.1\r\ns=a\r\nc=IN IP4 127.0.0.1\r\nt=0 0\r\n"
                       "a=control:rtsp://127.0.0.1:PORT/a\r\nm=audio PORT RTP/AVP 0\r\n"
                       "a=control:rtsp://127.0.0.1:PORT/a/1\r\n";

constexpr char Xspf[] = "<?xml version=\"1.0\"?>\n<playlist version=\"1\" "
                        "xmlns=\"http://xspf.org/ns/0/\"><trackList><track><location>"
                        "http://127.0.0.1:PORT/a.mp3</location></track></trackList></playlist>\n";

constexpr char M3u[] = "#EXTM3U\nhttp://127.0.0.1:PORT/a.mp3\n";

constexpr char Concat[] = "ffconcat version 1.0\nfile http://127.0.0.1:PORT/a.mp3\n";

constexpr char Rtsp[] = "RTSPtextrtsp://127.0.0.1:PORT/a\r\n";

QByteArray big(quint32 value)
{
    const quint32 octets = qToBigEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&octets), sizeof octets);
}

QByteArray box(const QByteArray &type, const QByteArray &content)
{
    return big(quint32(content.size() + 8)) + type + content;
}

/// A reference to an address; to the file itself for an empty one.
QByteArray urlReference(const QByteArray &address)
{
    constexpr quint32 SameFile = 1;
    return address.isEmpty() ? box("url ", big(SameFile)) : box("url ", big(0) + address + '\0');
}

/// A reference to a path on a volume, as old movies have it: names of 150 octets, then records of a
/// type and a length.
QByteArray aliasReference(const QByteArray &path)
{
    constexpr qsizetype Names = 150;
    const QByteArray even = path + QByteArray(path.size() % 2, '\0');
    QByteArray alias(Names, '\0');
    alias.append("\0\2", 2).append(char(even.size() >> 8)).append(char(even.size())).append(even);
    return box("alis", big(0) + alias.append("\xff\xff\0\0", 4));
}

/// The boxes of a movie, with another reference in each dref. Its samples stand before the changed
/// box, so their offsets stay.
QByteArray withReference(QByteArrayView boxes, const QByteArray &reference)
{
    static const QByteArrayList containers{"moov", "trak", "mdia", "minf", "dinf"};
    QByteArray result;
    while (boxes.size() >= 8) {
        const auto size = qsizetype(qFromBigEndian<quint32>(boxes.data()));
        const QByteArray type = boxes.sliced(4, 4).toByteArray();
        const QByteArrayView content = boxes.first(size).sliced(8);
        if (type == "dref")
            result += box(type, big(0) + big(1) + reference);
        else
            result += box(type,
                          containers.contains(type) ? withReference(content, reference)
                                                    : content.toByteArray());
        boxes = boxes.sliced(size);
    }
    return result;
}

/// A clip that FFmpeg decodes under this extension.
QByteArray validClip(const QString &extension)
{
    static const QMap<QString, QString> names{
        {"aac", "sound.aac"},  {"mp3", "sound.mp3"}, {"wav", "sound.wav"},
        {"avi", "video.avi"},  {"mpg", "video.mpg"}, {"amr", "sound.amr"},
        {"mpeg", "video.mpg"}, {"awb", "sound.amr"}, {"qcp", "sound.mp3"},
    };
    return fixture(names.value(extension, "video.3gp"));
}

} // namespace

class ClipPlaylistsTest : public QObject
{
    Q_OBJECT

private slots:
    void aPlayerThatChoosesByContentWouldConnect();
    void listenersNoticeConnections();
    void listenersNoticeDatagrams();
    void opensNoConnection_data();
    void opensNoConnection();
    void opensNoConnectionForMovies_data();
    void opensNoConnectionForMovies();
    void decodesMoviesWithTheirOwnReference();
    void decodesTheFramesAfterAPlaylist();

private:
    static void verifyNoConnection(const QByteArray &reference, Listener *listener);
};

// With these plugins, Qt's own player opens the addresses in playlists.
void ClipPlaylistsTest::aPlayerThatChoosesByContentWouldConnect()
{
    const QStringList folders =
        QDir(QStringLiteral("/usr/lib")).entryList({QStringLiteral("*-linux-*")}, QDir::Dirs);
    const bool areInstalled = std::ranges::any_of(folders, [](const QString &folder) {
        return QFile::exists(QStringLiteral("/usr/lib/%1/gstreamer-1.0/libgstdash.so").arg(folder));
    });
    if (areInstalled)
        return;
    if (qEnvironmentVariableIsSet("CI"))
        QFAIL("gstreamer1.0-plugins-bad is not installed");
    QSKIP("gstreamer1.0-plugins-bad is not installed");
}

void ClipPlaylistsTest::listenersNoticeConnections()
{
    Listener listener;
    QVERIFY(listener.isListening());
    QVERIFY(!listener.hasHeard());
    QTcpSocket client;
    client.connectToHost(QHostAddress::LocalHost, listener.port());
    QVERIFY(client.waitForConnected());
    client.abort();
    QVERIFY(listener.hasHeard());
}

void ClipPlaylistsTest::listenersNoticeDatagrams()
{
    Listener listener;
    QVERIFY(!listener.hasHeard());
    QUdpSocket client;
    client.writeDatagram("a", QHostAddress::LocalHost, listener.port());
    QVERIFY(PlayedClip::until([&] { return listener.hasHeard(); }));
}

void ClipPlaylistsTest::opensNoConnection_data()
{
    QTest::addColumn<QByteArray>("clip");
    QTest::newRow("HLS") << QByteArray(Hls);
    QTest::newRow("HLS master") << QByteArray(HlsMaster);
    QTest::newRow("DASH") << QByteArray(Dash);
    QTest::newRow("SDP") << QByteArray(Sdp);
    QTest::newRow("XSPF") << QByteArray(Xspf);
    QTest::newRow("M3U") << QByteArray(M3u);
    QTest::newRow("list of files") << QByteArray(Concat);
    QTest::newRow("RTSP") << QByteArray(Rtsp);
}

void ClipPlaylistsTest::opensNoConnection()
{
    QFETCH(const QByteArray, clip);
    Listener listener;
    QVERIFY(listener.isListening());
    verifyNoConnection(withPort(clip, listener.port()), &listener);
}

void ClipPlaylistsTest::opensNoConnectionForMovies_data()
{
    QTest::addColumn<bool>("isAlias");
    QTest::newRow("movie with an address") << false;
    QTest::newRow("movie with a path") << true;
}

void ClipPlaylistsTest::opensNoConnectionForMovies()
{
    QFETCH(const bool, isAlias);
    Listener listener;
    QVERIFY(listener.isListening());
    const QByteArray address = withPort("http://127.0.0.1:PORT/a.mov", listener.port());
    verifyNoConnection(withReference(fixture("video.3gp"),
                                     isAlias ? aliasReference(address) : urlReference(address)),
                       &listener);
}

void ClipPlaylistsTest::verifyNoConnection(const QByteArray &reference, Listener *listener)
{
    const QStringList extensions = ConvertChild::extensions();
    QVERIFY(extensions.size() > 10);
    for (const QString &extension : extensions) {
        PlayedClip alone(reference, extension);
        PlayedClip before(reference + validClip(extension), extension);
        alone.player->showAt(0);
        before.player->showAt(0);
        QVERIFY(PlayedClip::untilRead());
        QVERIFY2(!listener->hasHeard(), qPrintable(extension));
    }
}

// Otherwise a damaged movie would explain that nothing is opened.
void ClipPlaylistsTest::decodesMoviesWithTheirOwnReference()
{
    PlayedClip played(withReference(fixture("video.3gp"), urlReference({})), "3gp");
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    QVERIFY(played.playToEnd());
    QVERIFY(played.failures.isEmpty());
    QCOMPARE(played.images.size(), 5);
}

// Otherwise nothing would show that the player reads what is after a playlist.
void ClipPlaylistsTest::decodesTheFramesAfterAPlaylist()
{
    PlayedClip played(withPort(Hls, 1) + fixture("sound.mp3"), "mp3");
    played.player->start(0);
    QVERIFY(PlayedClip::untilRead());
    QVERIFY(played.playToEnd());
    QCOMPARE(played.ends, 1);
    QVERIFY(!played.heard.samples.isEmpty());
}

QVL_CLIP_TEST_MAIN(ClipPlaylistsTest)
#include "clip_playlists_test.moc"
