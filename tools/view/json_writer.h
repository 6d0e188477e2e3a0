/*
 * Writes JSON in one pass, in the compact form of QJsonDocument. Not with QJsonDocument, which
 * builds a tree first: that took two thirds of the instructions for showing a message.
 */
#pragma once

#include <QByteArrayView>
#include <QStringView>

#include <array>
#include <charconv>
#include <concepts>
#include <string>
#include <utility>

/// The caller begins and ends objects and arrays, and writes the keys in order. Characters without
/// a visible form become \uhex, see TerminalText.
class JsonWriter
{
public:
    void beginObject() { begin('{'); }
    void endObject() { m_json += '}'; }
    void beginArray() { begin('['); }
    void endArray() { m_json += ']'; }

    /// The key of the value that follows: printable ASCII that needs no escape.
    void key(const char *name);

    void value(QStringView text);
    void value(const char *text); ///< printable ASCII that needs no escape
    void value(std::integral auto number)
    {
        std::array<char, 24> digits; // all of 64 bits, and a sign
        const char *end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        element(QByteArrayView(digits.data(), end));
    }
    void value(bool flag) { element(flag ? "true" : "false"); }
    void value(double number);

    void member(const char *name, const auto &content)
    {
        key(name);
        value(content);
    }

    /// The JSON so far.
    const std::string &json() const { return m_json; }
    /// The JSON, which the writer then no longer has. Saves a copy of many megabytes.
    std::string takeJson() { return std::move(m_json); }

private:
    void separate();
    void begin(char bracket);
    void element(QByteArrayView octets);
    QStringView appendPlain(QStringView text); // returns the rest, from the first other character

    std::string m_json; // appending to a QByteArray is not inlined
};
