#include "octets/octet_tree.h"

#include "check/findings.h"
#include "input/message.h"
#include "view/findings_view.h"
#include "view/scanned_field_view.h"
#include "view/terminal_text.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using TerminalText::visible;

constexpr qsizetype LongestValue = 200; // characters of a value that are shown
constexpr std::size_t MostOfParts = 50'000; // items, until headers are left out

struct TreeTexts
{
    Q_DECLARE_TR_FUNCTIONS(OctetTree)
};

QString shortened(const QString &text)
{
    const QString shown = visible(text.left(LongestValue));
    return text.size() > LongestValue ? shown + QChar(0x2026) : shown;
}

QString octetsText(qsizetype count)
{
    return TreeTexts::tr("%n octet(s)", nullptr, int(count));
}

QString nameOf(const QvlScannedHeader &header)
{
    if (header.name)
        return QString::fromLatin1(header.name);
    return header.letters.isEmpty() ? TreeTexts::tr("header %1").arg(header.code)
                                    : visible(QString::fromLatin1(header.letters));
}

QString valueOf(const QvlScannedHeader &header)
{
    const QString text = header.text();
    if (!text.isNull())
        return shortened(text);
    return header.number() >= 0 ? QString::number(header.number())
                                : octetsText(header.value.size());
}

/// The items of a part.
class PartItems
{
public:
    PartItems(const QvlScannedPart &part, qsizetype body, int parent)
        : m_part(part), m_body(body), m_parent(parent)
    {
    }

    OctetItem whole() const
    {
        const std::optional<QvlContentType> type = m_part.contentType();
        return {TreeTexts::tr("Part %1").arg(m_part.index),
                type ? shortened(type->mediaType) : QString(), m_body + m_part.offset,
                m_part.octets.size(), m_parent};
    }
    OctetItem inside(const QString &name, const QString &value, QByteArrayView octets,
                     int parent) const
    {
        const qsizetype offset = octets.data() - m_part.octets.data();
        return {name, value, m_body + m_part.offset + offset, octets.size(), parent};
    }

private:
    const QvlScannedPart &m_part;
    qsizetype m_body;
    int m_parent;
};

} // namespace

OctetTree::OctetTree(const Message &message, const Check::Findings &findings)
{
    addHeader(message);
    addProblems(findings);
}

int OctetTree::add(OctetItem item)
{
    const int index = int(m_items.size());
    std::vector<int> &siblings =
        item.parent < 0 ? m_roots : m_items[std::size_t(item.parent)].children;
    item.row = int(siblings.size());
    siblings.push_back(index);
    m_items.push_back(std::move(item));
    return index;
}

void OctetTree::addHeader(const Message &message)
{
    const QByteArray &octets = message.octets;
    QvlHeaderScanner scanner(octets);
    const int header = add({TreeTexts::tr("Header")});
    QvlScannedField field;
    int count = 0;
    while (count < MostItems && scanner.next(&field)) {
        ++count;
        add({visible(fieldTitle(field)), shortened(fieldText(field)), field.offset,
             field.octets.size(), header});
    }
    qsizetype end = scanner.position();
    const bool isRest = count == MostItems && scanner.next(&field);
    while (isRest && scanner.next(&field))
        ;
    if (isRest) {
        add({TreeTexts::tr("more fields"), {}, end, scanner.position() - end, header});
        end = scanner.position();
    }
    m_items[std::size_t(header)].length = end;
    if (scanner.result() == QvlHeaderScanner::ContentTypeRead)
        addBody(message, end);
    else if (end < octets.size())
        add({TreeTexts::tr("Not read"), QString::fromLatin1(scanner.meaning()), end,
             octets.size() - end});
}

void OctetTree::addBody(const Message &message, qsizetype offset)
{
    const qsizetype size = message.octets.size() - offset;
    if (size == 0)
        return;
    const int body = add({TreeTexts::tr("Body"), octetsText(size), offset, size});
    if (message.bodyResult)
        addParts(message, offset, body);
}

void OctetTree::addParts(const Message &message, qsizetype offset, int body)
{
    const QByteArrayView octets = QByteArrayView(message.octets).sliced(offset);
    QvlPartScanner parts(octets);
    QvlScannedPart part;
    qsizetype end = 0;
    for (int count = 0; parts.next(&part); ++count) {
        end = part.offset + part.octets.size();
        if (count > MostItems)
            m_items.back().length = offset + end - m_items.back().offset; // of the rest
        else if (count == MostItems)
            add({TreeTexts::tr("more parts"), {}, offset + part.offset, part.octets.size(), body});
        if (count >= MostItems)
            continue;
        if (count == 0)
            add({TreeTexts::tr("Count of parts"), {}, offset, part.offset, body});
        addPart(part, offset, body);
    }
    if (end == octets.size())
        return;
    const bool isExtra = parts.result() == QvlPartScanner::PartsRead;
    add({isExtra ? TreeTexts::tr("After the parts") : TreeTexts::tr("Not read"),
         isExtra ? octetsText(octets.size() - end) : QString::fromLatin1(parts.meaning()),
         offset + end, octets.size() - end, body});
}

void OctetTree::addPart(const QvlScannedPart &part, qsizetype offset, int body)
{
    const PartItems items(part, offset, body);
    const int whole = add(items.whole());
    add(items.inside(TreeTexts::tr("Content-Type"), item(whole).value, part.contentTypeOctets,
                     whole));
    QvlPartHeaderScanner headers(part.headers);
    QvlScannedHeader header;
    while (m_items.size() < MostOfParts && headers.next(&header))
        add(items.inside(nameOf(header), valueOf(header), header.octets, whole));
    if (const QByteArrayView rest = part.headers.sliced(headers.position()); !rest.isEmpty())
        add(items.inside(TreeTexts::tr("Not read"),
                         headers.result() == QvlPartHeaderScanner::Scanning
                             ? TreeTexts::tr("more headers")
                             : QString::fromLatin1(headers.meaning()),
                         rest, whole));
    add(items.inside(TreeTexts::tr("Data"), octetsText(part.data.size()), part.data, whole));
}

// Each problem marks the item at its place.
void OctetTree::addProblems(const Check::Findings &findings)
{
    int problems = -1;
    for (const Check::Finding &finding : findings.inOrder()) {
        const qsizetype octet = finding.place.octet;
        if (octet < 0)
            continue;
        if (problems < 0)
            problems = add({TreeTexts::tr("Problems")});
        const int marked = innermost(octet);
        const bool isWhole = marked >= 0 && item(marked).offset == octet;
        OctetItem problem{QString::fromLatin1(textOf(finding.rule).id),
                          visible(sentenceOf(finding)), octet, isWhole ? item(marked).length : 1,
                          problems};
        problem.isProblem = true;
        add(std::move(problem));
    }
}

int OctetTree::innermost(qsizetype octet) const
{
    int best = -1;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const OctetItem &one = m_items[i];
        const bool contains =
            !one.isProblem && octet >= one.offset && octet < one.offset + one.length;
        if (contains && (best < 0 || one.length <= item(best).length))
            best = int(i);
    }
    return best;
}
