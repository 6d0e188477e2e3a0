#include "html/page.h"

#include "html/assets.h"
#include "html/html_writer.h"

#include <QBuffer>
#include <QCryptographicHash>

using namespace Qt::StringLiterals;

namespace {

// As in a Content-Security-Policy: 'sha256-...'.
QString hashOf(QByteArrayView content)
{
    return u"'sha256-"_s
        + QString::fromLatin1(
               QCryptographicHash::hash(content.toByteArray(), QCryptographicHash::Sha256)
                   .toBase64())
        + u'\'';
}

// Nothing is loaded from elsewhere, and no script or style runs except the page's own.
QString policy()
{
    return u"default-src 'none'; img-src data:; media-src data:; style-src "_s
        + hashOf(HtmlAssets::Style) + u"; script-src "_s + hashOf(HtmlAssets::Script)
        + u"; base-uri 'none'; form-action 'none'"_s;
}

void writeBefore(HtmlWriter *html, const QString &title, const QString &heading)
{
    html->markup("<!DOCTYPE html>\n");
    html->open("html", {{"lang", u"en"_s}});
    html->open("head");
    html->single("meta", {{"charset", u"utf-8"_s}});
    html->single("meta", {{"http-equiv", u"Content-Security-Policy"_s}, {"content", policy()}});
    html->single("meta",
                 {{"name", u"viewport"_s}, {"content", u"width=device-width, initial-scale=1"_s}});
    html->element("title", title);
    html->open("style");
    html->markup(HtmlAssets::Style);
    html->close();
    html->close();
    html->markup("\n");
    html->open("body");
    html->open("main");
    html->element("h1", heading);
    html->markup("\n");
}

void writeAfter(HtmlWriter *html)
{
    html->close();
    html->open("script");
    html->markup(HtmlAssets::Script);
    html->close();
    html->close();
    html->close();
    html->markup("\n");
}

} // namespace

PageFrame pageFrame(const QString &title, const QString &heading)
{
    QBuffer page;
    page.open(QIODevice::WriteOnly);
    HtmlWriter html(&page);
    writeBefore(&html, title, heading);
    const qsizetype end = page.data().size();
    writeAfter(&html);
    return {page.data().first(end), page.data().sliced(end)};
}
