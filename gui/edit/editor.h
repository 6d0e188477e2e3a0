/*
 * Edits a message. Each action is one step that can be undone; typing in one field is one step,
 * too. The library's rules decide what fits on a slide; an action that is not possible changes
 * nothing and says why.
 */
#pragma once

#include "edit/edited_state.h"
#include "edit/header_fields.h"
#include "edit/outgoing.h"
#include "input/message.h"

#include <QColor>
#include <QDateTime>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUndoStack>

#include <functional>
#include <memory>
#include <optional>

/**
 * Owns the message and its steps. Actions return "" when they are done, else the reason, a sentence
 * for people, why they are not possible. Slides and media objects are counted from 0.
 *
 * Pointers to parts, slides and media objects of the message are valid until changed().
 */
class Editor : public QObject
{
    Q_OBJECT

public:
    /// What happens to the picture, the video or the sound in whose place a new one goes.
    enum Placement : unsigned char {
        Insert, ///< it stays, and the new one is refused
        Replace,
    };

    /// Edits @p message, an m-send-req that was not received; not null. See beginnings.h.
    explicit Editor(std::unique_ptr<Message> message, QObject *parent = nullptr);
    ~Editor() override;

    /// The message as it is now, without a SMIL part. Lives as long as the editor. Change it
    /// through the editor only.
    Message &message() { return *m_message; }
    const Message &message() const { return *m_message; }
    int slideCount() const;
    /// The slide, owned by the message; null out of range.
    MMS_COMP_SMILTimingContainer *slide(int index) const;
    /// The text of the slide; "" without one.
    QString text(int slide) const;
    const EditedState &state() const { return m_state; }

    /// The steps, for actions and menus. They belong to the editor.
    QUndoStack *steps() { return &m_steps; }
    /// Whether there is work that was not saved.
    bool isModified() const { return m_isRecovered || !m_steps.isClean(); }
    /// Notes that the message was saved as it is now.
    void setSaved();
    /// Notes that the message comes from a draft, and was never saved.
    void setRecovered() { m_isRecovered = true; }
    /// Ends the step of what was typed. To be called when a field loses the focus.
    void endTyping() { ++m_typing; }

    /// @name Encoding
    /// @{

    /// The message to save, with the date @p date.
    Outgoing encodeToSave(const QDateTime &date = QDateTime::currentDateTime()) const;
    Outgoing encodeDraft() const { return ::encodeDraft(m_state); }
    /// Octets of the message to save. Encodes it once after a change.
    qint64 size() const;
    /// Most octets of a message, from the handset's settings.
    static qint64 sizeLimit();
    /// @}

    /// @name Header
    /// @{

    /// Phone numbers and e-mail addresses; empty ones are ignored. One step while typing.
    QString setRecipients(Recipients kind, const QStringList &addresses);
    /// One step while typing.
    QString setSubject(const QString &subject);
    /// One of QvlPriority.
    QString setPriority(unsigned char priority);
    QString setDeliveryReport(bool isWanted);
    QString setReadReport(bool isWanted);
    /// In seconds after the message is sent, above 0; nothing for the relay's own.
    QString setExpiry(std::optional<int> seconds);
    /// Nothing for at once.
    QString setDeliveryTime(const std::optional<QDateTime> &time);
    /// @}

    /// @name Slides
    /// @{

    /// Inserts an empty slide before the slide @p index, or at the end.
    QString addSlide(int index);
    QString deleteSlide(int index);
    /// Inserts a copy after the slide, with parts of its own.
    QString duplicateSlide(int index);
    /// Moves a slide. It then has the index @p to.
    QString moveSlide(int from, int to);
    /// No color for the default.
    QString setPageColor(int slide, const std::optional<QColor> &color);
    /// Milliseconds above 0, rounded up to a multiple of QvlDuration::Step; nothing for an
    /// automatic duration. With a clip only that is possible.
    QString setDuration(int slide, std::optional<int> milliseconds);
    /// Why the slide cannot have a fixed duration; "" if it can.
    QString whyNoFixedDuration(int slide) const;
    /// @}

    /// @name Media
    /// @{

    /// Adds or changes the text. An empty text stays until it is removed, but is not saved. One
    /// step while typing.
    QString setText(int slide, const QString &text);
    /// No color for the default.
    QString setTextColor(int slide, const std::optional<QColor> &color);
    /// "small", "normal" or "large"; "" for the default.
    QString setTextSize(int slide, const QString &size);
    QString setTextAbovePicture(int slide, bool isAbove);
    /// Adds a picture, a video or a sound with the content @p octets of the file @p fileName.
    QString addMedia(int slide, const QString &fileName, const QByteArray &octets,
                     Placement placement);
    /// Why the slide takes no media of the kind; "" if it takes one.
    QString whyNotInserted(int slide, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind) const;
    /// Removes a media object with its part.
    QString removeObject(int slide, int index);
    /// Index of the first object in the place of @p kind, for which images and videos are the same;
    /// -1 for none.
    int objectIndex(int slide, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind) const;
    /// @}

    /// @name Attachments
    /// @{

    /// Adds a part that no slide shows, after the others.
    QString attach(const QString &fileName, const QByteArray &octets);
    /// Removes the attachment, counted among the attachments.
    QString removeAttachment(int index);
    /// @}

signals:
    /// The message has changed, also through undo or redo.
    void changed();
    /// The message was saved.
    void saved();

private:
    friend class EditStep;
    using Change = std::function<QString()>;

    QString perform(const QString &name, const Change &change, int field = -1);
    QString changeSlide(int slide, const QString &name,
                        const std::function<QString(MMS_COMP_SMILTimingContainer *)> &change,
                        int field = -1);
    void restore(const EditedState &state);
    QString whyNoMoreParts(int more) const;
    QString duplicate(int index);
    void bindCopy(const MMS_COMP_SMILMultipartBodypart &part, MMS_COMP_SMILMediaObject *object);
    QString placeText(MMS_COMP_SMILTimingContainer *slide, int index, const QString &text);
    QString placeMedia(int slide, const QString &fileName, const QByteArray &octets,
                       Placement placement);

    std::unique_ptr<Message> m_message;
    EditedState m_state; ///< of m_message
    int m_typing = 0; ///< counts the fields in which was typed
    bool m_isRecovered = false;
    mutable std::optional<qint64> m_size; ///< of m_state
    QUndoStack m_steps; ///< last, because its steps refer to the editor
};
