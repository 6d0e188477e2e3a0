/*
 * JSON written from its first octet to its last, as QJsonDocument writes it in its compact form. Qt
 * makes a tree first, which took two thirds of the instructions for showing a message.
 */
#pragma once

#include <QByteArray>
#include <QStringView>

#include <concepts>
#include <string>

/// Objects and arrays are begun and ended by the caller, who writes the keys in their order.
/// Characters without a visible form are written as \uhex, see TerminalText.
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
    void value(std::integral auto number) { element(QByteArray::number(number)); }
    void value(bool flag) { element(flag ? "true" : "false"); }
    void value(double number);

    void member(const char *name, const auto &content)
    {
        key(name);
        value(content);
    }

    /// What has been written.
    const std::string &json() const { return m_json; }

private:
    void separate();
    void begin(char bracket);
    void element(QByteArrayView octets);
    QStringView appendPlain(QStringView text); // up to what needs a look, which it returns

    std::string m_json; // appending to a QByteArray is not inlined
};
