/*
 * Writes HTML piece by piece. The elements are well-formed XML, too. Every text and every value of
 * an attribute is escaped here, so no text of a message can become markup.
 */
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <initializer_list>
#include <vector>

class HtmlWriter
{
public:
    /// An attribute; one that is only there or not, such as controls, has an empty value.
    struct Attribute
    {
        const char *name;
        QString value;
    };
    using Attributes = std::initializer_list<Attribute>;

    /// Writes to @p out, which has to outlive it.
    explicit HtmlWriter(QIODevice *out) : m_out(out) { }

    /// Opens an element.
    void open(const char *tag, Attributes attributes = {});
    /// Closes the element that was opened last.
    void close();
    /// An element that holds nothing and has no end, such as <img>.
    void single(const char *tag, Attributes attributes = {});
    /// A text. Control characters become visible; line feeds and tabs stay.
    void text(const QString &text);
    /// An element that holds only a text.
    void element(const char *tag, const QString &text, Attributes attributes = {});

    /// Opens an element whose attribute @p name holds @p octets as a data URI of @p mediaType.
    void openWithData(const char *tag, const char *name, const char *mediaType,
                      const QByteArray &octets, Attributes attributes = {});
    /// The same for an element that has no end.
    void singleWithData(const char *tag, const char *name, const char *mediaType,
                        const QByteArray &octets, Attributes attributes = {});

    /// Trusted markup: that of the page itself.
    void markup(QByteArrayView markup);

private:
    void start(const char *tag, Attributes attributes);
    void startWithData(const char *tag, const char *name, const char *mediaType,
                       const QByteArray &octets, Attributes attributes);
    void writeData(const QByteArray &octets);

    QIODevice *m_out;
    std::vector<const char *> m_open;
    bool m_isOk = true; ///< false after the device took not all octets
};
