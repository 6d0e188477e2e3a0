/*
 * A folder with a page for each message, and an index.
 */
#pragma once

#include "html/draft.h"
#include "html/pages.h"
#include "render/missing.h"

#include <memory>

class PageFolder : public Pages
{
public:
    /// Writes to the folder @p folder, which exists. Replaces files of the same names. The index
    /// has thumbnails while it is within @p limit.
    PageFolder(QString folder, PageLimit limit);

    bool add(const Message &message, const Check::Findings &findings, PageMedia *media,
             QString *error) override;
    bool finish(Report *report, QString *error) override;

private:
    bool writeLast(bool hasNext, QString *error);

    const QString m_folder;
    const PageLimit m_limit;
    Draft m_index;
    std::unique_ptr<Draft> m_last; ///< the message whose page waits for the next one
    QString m_lastTitle;
    Missing m_withoutThumbnail;
};
