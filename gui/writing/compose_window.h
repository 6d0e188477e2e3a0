/*
 * A window to write a message in. It saves the message and sends nothing.
 */
#pragma once

#include "edit/draft_keeper.h"
#include "edit/editor.h"
#include "stage/slide_drawer.h"
#include "writing/questions.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <memory>

class AttachmentsList;
class HeaderForm;
class OptionsForm;
class QSplitter;
class SizeGauge;
class SlideForm;
class SlideStrip;
class Stage;

class ComposeWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Writes the message of @p editor; @p draft, which may be null, survives a crash. Deletes
    /// itself when it is closed.
    ComposeWindow(std::unique_ptr<Editor> editor, std::unique_ptr<MessageDraft> draft,
                  Questions questions);
    ~ComposeWindow() override;

    /// Opens a window with a draft in the user's folder.
    static ComposeWindow *open(std::unique_ptr<Editor> editor,
                               const Questions &questions = Questions::dialogs());
    /// Asks what becomes of the drafts that a crash left. Returns how many were opened.
    static int offerDrafts(QWidget *parent, const Questions &questions = Questions::dialogs());

    Editor &editor() { return *m_editor; }
    /// Saves under the name that was chosen before, or asks for one. False if nothing was saved.
    bool save();
    bool saveAs();

signals:
    void saved(const QString &fileName);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void makeCenter();
    void makeMenus();
    void connectParts();
    bool write(const QString &fileName);
    bool confirmErrors(const QByteArray &pdu);
    void addFiles(const QStringList &names);
    void wait(bool isWaiting);
    void restoreLayout();
    void saveLayout() const;
    void scheduleDrawing();
    void drawSlides();
    void drawCurrent();
    void updateTitle();
    void report(const QString &line);

    std::unique_ptr<Editor> m_editor;
    Questions m_questions;
    std::unique_ptr<DraftKeeper> m_keeper; ///< null if no draft can be kept
    QString m_fileName; ///< of the saved message
    QByteArray m_drawn; ///< the message as it is drawn
    QTimer m_drawing;
    std::unique_ptr<SlideDrawer> m_drawer;

    QSplitter *m_splitter = nullptr;
    QPointer<QWidget> m_focus; ///< while the window waits
    HeaderForm *m_header;
    SlideForm *m_slide; // these are in the order of the Tab key
    AttachmentsList *m_attachments;
    OptionsForm *m_options;
    SlideStrip *m_slides;
    Stage *m_stage;
    SizeGauge *m_size;
};
