/*
 * Numbers and texts of the e-mail system: lookups in both directions in one table per family.
 */
#include "platform/email_util.h"

#include "platform/host/email_code_tables.h"

#include <tuple>

using namespace HostPlatform;

namespace {

constexpr int UnknownText = -1;

int codeOf(const auto &table, const QCString &text)
{
    const auto row = std::ranges::find_if(table, [&](const EmailCodeRow &candidate) {
        return text.size() == qsizetype(candidate.text.size())
            && text.compare(latin1(candidate.text), Qt::CaseInsensitive) == 0;
    });
    return row == table.end() ? UnknownText : row->code;
}

bool textOf(const auto &table, int code, QCString &text)
{
    const auto row = std::ranges::find(table, code, &EmailCodeRow::code);
    if (row == table.end())
        return false;
    text = QCString(row->text.data(), qsizetype(row->text.size()));
    return true;
}

} // namespace

int EMAIL_Util::typeStrToEnum(const QCString &text)
{
    return codeOf(emailTypeTable, text);
}

bool EMAIL_Util::typeEnumToStr(int code, QCString &text)
{
    return textOf(emailTypeTable, code, text);
}

int EMAIL_Util::subTypeStrToEnum(const QCString &text)
{
    return codeOf(emailSubTypeTable, text);
}

bool EMAIL_Util::subTypeEnumToStr(int code, QCString &text)
{
    return textOf(emailSubTypeTable, code, text);
}

bool EMAIL_Util::charsetEnumToStr(int code, QCString &text)
{
    return textOf(emailCharsetTable, code, text);
}

int EMAIL_Util::cteStrToEnum(const QCString &text)
{
    return codeOf(emailTransferEncodingTable, text);
}

QCString EMAIL_Util::cteEnumToStr(int code)
{
    QCString text("");
    std::ignore = textOf(emailTransferEncodingTable, code, text); // unknown: the empty text stays
    return text;
}
