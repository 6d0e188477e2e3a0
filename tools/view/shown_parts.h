/*
 * What is shown of a part with each media object that refers to it. Thousands of objects may refer
 * to one part, so it is found once for each part: a clip has to be measured, a text decoded.
 */
#pragma once

#include <QString>

#include <optional>
#include <unordered_map>

class MMS_COMP_SMILMultipartBodypart;
struct Message;

class ShownParts
{
public:
    using Part = MMS_COMP_SMILMultipartBodypart;

    /// A longer first line ends in an ellipsis after so many units of UTF-16.
    static constexpr qsizetype LongestLine = 200;

    /// @p message must not change meanwhile.
    explicit ShownParts(const Message &message);

    /// The place of @p part in the message, or -1.
    int indexOf(const Part &part);
    /// The first line of the text of @p part, up to a zero.
    QString firstLine(const Part &part);
    /// Milliseconds that the clip plays, or -1 if the library cannot measure it.
    int playDuration(Part &part);

private:
    struct Shown
    {
        int index = -1;
        std::optional<QString> firstLine;
        std::optional<int> playDuration;
    };

    const Message &m_message;
    std::unordered_map<const Part *, Shown> m_parts;
};
