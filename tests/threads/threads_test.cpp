/*
 * Threads use the library on messages of their own. They get the results of a single thread, and
 * the build with ThreadSanitizer reports no race.
 */
#include "message/message.h"
#include "presentation/presentation.h"
#include "scan/charset_text.h"
#include "support/play_length.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <latch>
#include <thread>
#include <utility>
#include <vector>

namespace {

constexpr int Threads = 8;
constexpr int Rounds = 4;

/// The contents of files, by their names.
using Files = std::vector<std::pair<QString, QByteArray>>;

Files filesIn(const QString &folder, const QString &pattern)
{
    const QDir dir(QStringLiteral(QVL_FIXTURES "/") + folder);
    Files files;
    for (const QString &name : dir.entryList({pattern}, QDir::Files, QDir::Name)) {
        QFile file(dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
        // Not shared with the other threads.
        const QByteArray octets = file.readAll();
        files.emplace_back(name, QByteArray(octets.constData(), octets.size()));
    }
    EXPECT_FALSE(files.empty());
    return files;
}

QByteArray number(int value)
{
    return QByteArray::number(value) + ' ';
}

QByteArray resultOf(const QvlMessage::Result &result)
{
    return number(result.layer) + number(result.code);
}

// A message all the way in and out.
QByteArray passedThrough(const QByteArray &pdu)
{
    QvlMessage message;
    QByteArray results = resultOf(message.receive(pdu));
    results += resultOf(message.present());
    results += number(message.storeSlides());
    QByteArray encoded;
    results += resultOf(message.encode(&encoded));
    return results + encoded;
}

QByteArray messages()
{
    QByteArray results;
    for (const char *folder : {"messages", "show"}) {
        for (const auto &[name, pdu] :
             filesIn(QString::fromLatin1(folder), QStringLiteral("*.mms")))
            results += passedThrough(pdu);
    }
    return results;
}

QByteArray clips()
{
    QByteArray lengths;
    for (const auto &[name, clip] : filesIn(QStringLiteral("clips"), QStringLiteral("*"))) {
        const QByteArray extension = name.section(u'.', -1).toLatin1();
        lengths += number(playLength(clip, extension.constData()).value_or(-1));
    }
    return lengths;
}

QByteArray texts()
{
    constexpr int MostCharset = 3000; // above the numbers of all charsets
    QByteArray texts;
    for (int charset = 0; charset < MostCharset; ++charset) {
        if (charset == 0 || qvlCharsetName(charset))
            texts += qvlDecodeText(QByteArray("a\xE4\x84\xB1z"), charset).toUtf8();
    }
    return texts;
}

struct Use
{
    const char *name;
    QByteArray (*result)();
};

constexpr std::array uses{Use{"messages", messages}, Use{"clips", clips}, Use{"texts", texts}};

// Begins with another use in each thread.
std::array<QByteArray, uses.size()> resultsOfThread(int thread)
{
    std::array<QByteArray, uses.size()> results;
    for (int round = 0; round < Rounds; ++round) {
        for (std::size_t i = 0; i < uses.size(); ++i) {
            const std::size_t use = (i + std::size_t(thread)) % uses.size();
            results[use] = uses[use].result();
        }
    }
    return results;
}

// The threads run first, so that they also share whatever the first use prepares.
TEST(Threads, GetTheResultsOfASingleThread)
{
    std::array<std::array<QByteArray, uses.size()>, Threads> results;
    {
        std::latch start(Threads);
        std::vector<std::jthread> threads;
        for (int i = 0; i < Threads; ++i) {
            threads.emplace_back([i, &start, &result = results[std::size_t(i)]] {
                start.arrive_and_wait();
                result = resultsOfThread(i);
            });
        }
    }
    for (std::size_t use = 0; use < uses.size(); ++use) {
        SCOPED_TRACE(uses[use].name);
        const QByteArray expected = uses[use].result();
        EXPECT_FALSE(expected.isEmpty());
        for (const auto &result : results)
            EXPECT_EQ(result[use], expected);
    }
}

} // namespace
