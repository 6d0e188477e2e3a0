<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AttachmentsList</name>
    <message>
        <source>Remove Attach&amp;ment</source>
        <translation>An&amp;hang entfernen</translation>
    </message>
    <message>
        <source>Attachments</source>
        <translation>Anhänge</translation>
    </message>
    <message>
        <source>&amp;Attach File…</source>
        <translation>Datei anhän&amp;gen …</translation>
    </message>
    <message>
        <source>Attach File</source>
        <translation>Datei anhängen</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Attachments:</source>
        <translation>Anhänge:</translation>
    </message>
</context>
<context>
    <name>ClipPlayer</name>
    <message>
        <source>The sound cannot be decoded. Its codec is %1.</source>
        <translation>Der Ton lässt sich nicht dekodieren. Sein Codec ist %1.</translation>
    </message>
    <message>
        <source>The pictures cannot be decoded. Their codec is %1.</source>
        <translation>Die Bilder lassen sich nicht dekodieren. Ihr Codec ist %1.</translation>
    </message>
    <message>
        <source>The clip cannot be decoded.</source>
        <translation>Der Clip lässt sich nicht dekodieren.</translation>
    </message>
    <message>
        <source>The decoder for clips is not installed.</source>
        <translation>Der Dekodierer für Clips ist nicht installiert.</translation>
    </message>
    <message>
        <source>There is no decoder for clips of the type &quot;%1&quot;.</source>
        <translation>Für Clips vom Typ „%1“ gibt es keinen Dekodierer.</translation>
    </message>
    <message>
        <source>The decoder was stopped, because it took too long.</source>
        <translation>Der Dekodierer wurde angehalten, weil er zu lange brauchte.</translation>
    </message>
    <message>
        <source>The decoder was stopped by this clip. The clip may be damaged.</source>
        <translation>Der Dekodierer wurde durch diesen Clip beendet. Der Clip ist vielleicht beschädigt.</translation>
    </message>
</context>
<context>
    <name>ComposeWindow</name>
    <message>
        <source>message.mms</source>
        <translation>nachricht.mms</translation>
    </message>
    <message>
        <source>Save Message</source>
        <translation>Nachricht speichern</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 ist gespeichert</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Preview of the slide</source>
        <translation>Vorschau der Folie</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>Bea&amp;rbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig:</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen:</translation>
    </message>
    <message>
        <source>&amp;Slide</source>
        <translation>F&amp;olie</translation>
    </message>
    <message>
        <source>There is no preview.</source>
        <translation>Es gibt keine Vorschau.</translation>
    </message>
    <message>
        <source>The slide takes too much time or memory to draw.</source>
        <translation>Die Folie braucht zum Zeichnen zu viel Zeit oder Speicher.</translation>
    </message>
    <message>
        <source>New Message</source>
        <translation>Neue Nachricht</translation>
    </message>
    <message>
        <source>Drafts</source>
        <translation>Entwürfe</translation>
    </message>
    <message>
        <source>%1 cannot be read. It stays where it is.</source>
        <translation>%1 kann nicht gelesen werden. Die Datei bleibt, wo sie ist.</translation>
    </message>
    <message>
        <source>The picture is being read</source>
        <translation>Das Bild wird gelesen</translation>
    </message>
</context>
<context>
    <name>DraftKeeper</name>
    <message>
        <source>%1 cannot be deleted.</source>
        <translation>%1 lässt sich nicht löschen.</translation>
    </message>
</context>
<context>
    <name>Editor</name>
    <message>
        <source>There is no such slide.</source>
        <translation>Diese Folie gibt es nicht.</translation>
    </message>
    <message>
        <source>%1 is neither a phone number nor an e-mail address.</source>
        <translation>%1 ist weder eine Telefonnummer noch eine E-Mail-Adresse.</translation>
    </message>
    <message>
        <source>Change Recipients</source>
        <translation>Empfänger ändern</translation>
    </message>
    <message>
        <source>A subject is one line.</source>
        <translation>Ein Betreff hat eine Zeile.</translation>
    </message>
    <message>
        <source>Change Subject</source>
        <translation>Betreff ändern</translation>
    </message>
    <message>
        <source>There is no such priority.</source>
        <translation>Diese Priorität gibt es nicht.</translation>
    </message>
    <message>
        <source>Change Priority</source>
        <translation>Priorität ändern</translation>
    </message>
    <message>
        <source>Change Delivery Report</source>
        <translation>Zustellbericht ändern</translation>
    </message>
    <message>
        <source>Change Read Report</source>
        <translation>Lesebericht ändern</translation>
    </message>
    <message>
        <source>A message expires after at least one second.</source>
        <translation>Eine Nachricht verfällt frühestens nach einer Sekunde.</translation>
    </message>
    <message>
        <source>Change Expiry</source>
        <translation>Verfall ändern</translation>
    </message>
    <message>
        <source>A message cannot have this delivery time.</source>
        <translation>Diese Zustellzeit ist nicht möglich.</translation>
    </message>
    <message>
        <source>Change Delivery Time</source>
        <translation>Zustellzeit ändern</translation>
    </message>
    <message>
        <source>A message has at most %1 parts.</source>
        <translation>Eine Nachricht hat höchstens %1 Teile.</translation>
    </message>
    <message>
        <source>Change Text</source>
        <translation>Text ändern</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Es ist nicht genug Speicher da.</translation>
    </message>
    <message>
        <source>Move Text</source>
        <translation>Text verschieben</translation>
    </message>
    <message>
        <source>The slide has no text.</source>
        <translation>Die Folie hat keinen Text.</translation>
    </message>
    <message>
        <source>Slide %1 already has a picture or a video.</source>
        <translation>Folie %1 hat schon ein Bild oder Video.</translation>
    </message>
    <message>
        <source>Slide %1 already has a sound.</source>
        <translation>Folie %1 hat schon einen Ton.</translation>
    </message>
    <message>
        <source>Slide %1 already has a text.</source>
        <translation>Folie %1 hat schon einen Text.</translation>
    </message>
    <message>
        <source>A slide cannot show this.</source>
        <translation>Eine Folie kann das nicht zeigen.</translation>
    </message>
    <message>
        <source>Replace Media</source>
        <translation>Medium ersetzen</translation>
    </message>
    <message>
        <source>Add Media</source>
        <translation>Medium hinzufügen</translation>
    </message>
    <message>
        <source>%1 is neither a picture nor a video nor a sound.</source>
        <translation>%1 ist weder ein Bild noch ein Video noch ein Ton.</translation>
    </message>
    <message>
        <source>%1 cannot be shown or played as %2. It may be damaged or misnamed.</source>
        <translation>%1 lässt sich nicht als %2 zeigen oder abspielen. Die Datei ist vielleicht beschädigt oder falsch benannt.</translation>
    </message>
    <message>
        <source>Remove Media</source>
        <translation>Medium entfernen</translation>
    </message>
    <message>
        <source>There is nothing to remove.</source>
        <translation>Es gibt nichts zu entfernen.</translation>
    </message>
    <message>
        <source>Attach File</source>
        <translation>Datei anhängen</translation>
    </message>
    <message>
        <source>Remove Attachment</source>
        <translation>Anhang entfernen</translation>
    </message>
    <message>
        <source>Add Slide</source>
        <translation>Folie hinzufügen</translation>
    </message>
    <message>
        <source>Delete Slide</source>
        <translation>Folie löschen</translation>
    </message>
    <message>
        <source>Duplicate Slide</source>
        <translation>Folie verdoppeln</translation>
    </message>
    <message>
        <source>Move Slide</source>
        <translation>Folie verschieben</translation>
    </message>
    <message>
        <source>Change Page Color</source>
        <translation>Seitenfarbe ändern</translation>
    </message>
    <message>
        <source>Change Text Color</source>
        <translation>Textfarbe ändern</translation>
    </message>
    <message>
        <source>There is no such text size.</source>
        <translation>Diese Textgröße gibt es nicht.</translation>
    </message>
    <message>
        <source>Change Text Size</source>
        <translation>Textgröße ändern</translation>
    </message>
    <message>
        <source>A slide with a video or a sound lasts as long as they play.</source>
        <translation>Eine Folie mit Video oder Ton dauert so lange, wie sie spielen.</translation>
    </message>
    <message>
        <source>A slide lasts longer than 0 seconds.</source>
        <translation>Eine Folie dauert länger als 0 Sekunden.</translation>
    </message>
    <message>
        <source>Change Duration</source>
        <translation>Dauer ändern</translation>
    </message>
</context>
<context>
    <name>HeaderForm</name>
    <message>
        <source>T&amp;o:</source>
        <translation>A&amp;n:</translation>
    </message>
    <message>
        <source>&amp;Cc:</source>
        <translation>&amp;Cc:</translation>
    </message>
    <message>
        <source>&amp;Bcc:</source>
        <translation>&amp;Bcc:</translation>
    </message>
    <message>
        <source>Phone numbers and e-mail addresses, with commas between them</source>
        <translation>Telefonnummern und E-Mail-Adressen, durch Kommas getrennt</translation>
    </message>
    <message>
        <source>S&amp;ubject:</source>
        <translation>Betre&amp;ff:</translation>
    </message>
</context>
<context>
    <name>HeaderLines</name>
    <message numerus="yes">
        <source>%n more field(s)</source>
        <translation>
            <numerusform>%n weiteres Feld</numerusform>
            <numerusform>%n weitere Felder</numerusform>
        </translation>
    </message>
    <message>
        <source>Changed to read it</source>
        <translation>Zum Lesen geändert</translation>
    </message>
</context>
<context>
    <name>HeaderPanel</name>
    <message>
        <source>Header</source>
        <translation>Kopf</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
</context>
<context>
    <name>HexView</name>
    <message>
        <source>Octets</source>
        <translation>Oktette</translation>
    </message>
    <message>
        <source>Copy as &amp;Hex</source>
        <translation>Als &amp;Hex kopieren</translation>
    </message>
    <message>
        <source>Copy as &amp;Text</source>
        <translation>Als &amp;Text kopieren</translation>
    </message>
    <message>
        <source>octet %1: %2</source>
        <translation>Oktett %1: %2</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Multimedia Messages</source>
        <translation>Multimedia-Nachrichten</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Parts</source>
        <translation>Teile</translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>Probleme</translation>
    </message>
    <message>
        <source>SMIL</source>
        <translation>SMIL</translation>
    </message>
    <message>
        <source>Octets</source>
        <translation>Oktette</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>New &amp;Window</source>
        <translation>Neues &amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Open Messages…</source>
        <translation>Nachrichten ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>&amp;Ordner öffnen …</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Export as Page…</source>
        <translation>Als &amp;Seite exportieren …</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drucken …</translation>
    </message>
    <message>
        <source>Se&amp;ttings…</source>
        <translation>&amp;Einstellungen …</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Message</source>
        <translation>&amp;Nachricht</translation>
    </message>
    <message>
        <source>&amp;New Message</source>
        <translation>&amp;Neue Nachricht</translation>
    </message>
    <message>
        <source>&amp;Reply</source>
        <translation>&amp;Antworten</translation>
    </message>
    <message>
        <source>Reply to &amp;All</source>
        <translation>A&amp;llen antworten</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Weiterleiten</translation>
    </message>
    <message>
        <source>&amp;Edit as New</source>
        <translation>Als neue &amp;bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Über</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Multimedia Messages %1

Looks at multimedia messages (MMS) and writes them.</source>
        <translation>Multimedia-Nachrichten %1

Zeigt und schreibt Multimedia-Nachrichten (MMS).</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Open Messages</source>
        <translation>Nachrichten öffnen</translation>
    </message>
    <message>
        <source>Multimedia messages (*.mms);;All files (*)</source>
        <translation>Multimedia-Nachrichten (*.mms);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 ist gespeichert</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>The printer cannot be used.</source>
        <translation>Der Drucker lässt sich nicht verwenden.</translation>
    </message>
    <message>
        <source>Export as Page</source>
        <translation>Als Seite exportieren</translation>
    </message>
    <message>
        <source>Pages (*.html)</source>
        <translation>Seiten (*.html)</translation>
    </message>
    <message>
        <source>Sort Messages &amp;By</source>
        <translation>Nachrichten sortieren &amp;nach</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>%1 wird geschrieben</translation>
    </message>
    <message>
        <source>Printing %1</source>
        <translation>%1 wird gedruckt</translation>
    </message>
    <message>
        <source>Printed %1</source>
        <translation>%1 ist gedruckt</translation>
    </message>
    <message>
        <source>Saved %1. The page says which media it lacks</source>
        <translation>%1 gespeichert. Die Seite sagt, welche Medien ihr fehlen</translation>
    </message>
</context>
<context>
    <name>MessageDraft</name>
    <message>
        <source>Unsaved work cannot be kept: %1 cannot be written.</source>
        <translation>Ungespeichertes kann nicht aufbewahrt werden: %1 lässt sich nicht schreiben.</translation>
    </message>
    <message>
        <source>Unsaved work cannot be kept: %1</source>
        <translation>Ungespeichertes kann nicht aufbewahrt werden: %1</translation>
    </message>
</context>
<context>
    <name>MessageListModel</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weiterer</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n picture(s)</source>
        <translation>
            <numerusform>%n Bild</numerusform>
            <numerusform>%n Bilder</numerusform>
        </translation>
    </message>
    <message>
        <source>audio</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>nicht gelesen</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>ok</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>Slide</source>
        <translation>Folie</translation>
    </message>
    <message>
        <source>From or to</source>
        <translation>Von oder an</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Betreff</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Media</source>
        <translation>Medien</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
</context>
<context>
    <name>MessageListView</name>
    <message>
        <source>Progress of reading</source>
        <translation>Fortschritt des Lesens</translation>
    </message>
    <message>
        <source>Filter by address, subject or text (Ctrl+F)</source>
        <translation>Nach Adresse, Betreff oder Text filtern (Strg+F)</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>&amp;Filter</source>
        <translation>&amp;Filter</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message numerus="yes">
        <source>%n other file(s) skipped</source>
        <translation>
            <numerusform>%n andere Datei übergangen</numerusform>
            <numerusform>%n andere Dateien übergangen</numerusform>
        </translation>
    </message>
    <message>
        <source>No message contains these words.</source>
        <translation>Keine Nachricht enthält diese Wörter.</translation>
    </message>
    <message>
        <source>There are no messages here.</source>
        <translation>Hier sind keine Nachrichten.</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop reading</source>
        <translation>Lesen anhalten</translation>
    </message>
</context>
<context>
    <name>MessageReader</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>Es ist nicht genug Speicher da.</translation>
    </message>
</context>
<context>
    <name>OctetTree</name>
    <message numerus="yes">
        <source>%n octet(s)</source>
        <translation>
            <numerusform>%n Oktett</numerusform>
            <numerusform>%n Oktette</numerusform>
        </translation>
    </message>
    <message>
        <source>header %1</source>
        <translation>Kopfzeile %1</translation>
    </message>
    <message>
        <source>Part %1</source>
        <translation>Teil %1</translation>
    </message>
    <message>
        <source>Header</source>
        <translation>Kopf</translation>
    </message>
    <message>
        <source>more fields</source>
        <translation>weitere Felder</translation>
    </message>
    <message>
        <source>Not read</source>
        <translation>Nicht gelesen</translation>
    </message>
    <message>
        <source>Body</source>
        <translation>Rumpf</translation>
    </message>
    <message>
        <source>more parts</source>
        <translation>weitere Teile</translation>
    </message>
    <message>
        <source>Count of parts</source>
        <translation>Anzahl der Teile</translation>
    </message>
    <message>
        <source>After the parts</source>
        <translation>Nach den Teilen</translation>
    </message>
    <message>
        <source>Content-Type</source>
        <translation>Content-Type</translation>
    </message>
    <message>
        <source>more headers</source>
        <translation>weitere Kopfzeilen</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>Probleme</translation>
    </message>
</context>
<context>
    <name>OctetTreeModel</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Element</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Octet, length</source>
        <translation>Oktett, Länge</translation>
    </message>
</context>
<context>
    <name>OctetsPanel</name>
    <message>
        <source>Fields and parts</source>
        <translation>Felder und Teile</translation>
    </message>
</context>
<context>
    <name>OpenedFiles</name>
    <message>
        <source>%1 was opened to be read. Choose another name.</source>
        <translation>%1 wurde zum Lesen geöffnet. Wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>%1 is another message. Choose another name.</source>
        <translation>%1 ist eine andere Nachricht. Wählen Sie einen anderen Namen.</translation>
    </message>
</context>
<context>
    <name>OptionsForm</name>
    <message>
        <source>De&amp;livery report</source>
        <translation>&amp;Zustellbericht</translation>
    </message>
    <message>
        <source>&amp;Read report</source>
        <translation>&amp;Lesebericht</translation>
    </message>
    <message>
        <source>E&amp;xpires after</source>
        <translation>&amp;Verfällt nach</translation>
    </message>
    <message>
        <source>Deli&amp;ver at</source>
        <translation>Zustellen a&amp;m</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Niedrig</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Priority</source>
        <translation>Priorität</translation>
    </message>
    <message>
        <source>Priorit&amp;y:</source>
        <translation>&amp;Priorität:</translation>
    </message>
    <message>
        <source>Reports:</source>
        <translation>Berichte:</translation>
    </message>
    <message>
        <source>Days until the message expires</source>
        <translation>Tage, bis die Nachricht verfällt</translation>
    </message>
    <message>
        <source>Delivery time</source>
        <translation>Zustellzeit</translation>
    </message>
    <message numerus="yes">
        <source> day(s)</source>
        <translation>
            <numerusform> Tag</numerusform>
            <numerusform> Tagen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Outgoing</name>
    <message>
        <source>The message has no recipient.</source>
        <translation>Die Nachricht hat keinen Empfänger.</translation>
    </message>
    <message>
        <source>The message has no content.</source>
        <translation>Die Nachricht hat keinen Inhalt.</translation>
    </message>
    <message>
        <source>Slide %1 has no text, picture or sound. Add one, or delete the slide.</source>
        <translation>Folie %1 hat weder Text noch Bild noch Ton. Fügen Sie etwas hinzu, oder löschen Sie die Folie.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Es ist nicht genug Speicher da.</translation>
    </message>
    <message>
        <source>The message has %1 parts. It can have %2.</source>
        <translation>Die Nachricht hat %1 Teile. Sie kann %2 haben.</translation>
    </message>
    <message>
        <source>The message cannot be written: %1.</source>
        <translation>Die Nachricht lässt sich nicht schreiben: %1.</translation>
    </message>
    <message>
        <source>%1 would read back differently. Change it, or remove it.</source>
        <translation>%1 würde anders gelesen werden. Ändern oder entfernen Sie es.</translation>
    </message>
</context>
<context>
    <name>PageExport</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>Es ist nicht genug Speicher da.</translation>
    </message>
</context>
<context>
    <name>PartsPanel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Octets</source>
        <translation>Oktette</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Parts</source>
        <translation>Teile</translation>
    </message>
    <message>
        <source>&amp;Save Part…</source>
        <translation>Teil &amp;speichern …</translation>
    </message>
    <message>
        <source>Save &amp;All Parts…</source>
        <translation>&amp;Alle Teile speichern …</translation>
    </message>
    <message>
        <source>&amp;Copy Part</source>
        <translation>Teil &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Open Part…</source>
        <translation>Teil ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>shown</source>
        <translation>gezeigt</translation>
    </message>
    <message>
        <source>attachment</source>
        <translation>Anhang</translation>
    </message>
    <message>
        <source>Save Part</source>
        <translation>Teil speichern</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 ist gespeichert</translation>
    </message>
    <message>
        <source>Save All Parts</source>
        <translation>Alle Teile speichern</translation>
    </message>
    <message numerus="yes">
        <source>Saved %n part(s)</source>
        <translation>
            <numerusform>%n Teil gespeichert</numerusform>
            <numerusform>%n Teile gespeichert</numerusform>
        </translation>
    </message>
    <message>
        <source>Open Part</source>
        <translation>Teil öffnen</translation>
    </message>
    <message>
        <source>Open “%1” with another program?</source>
        <translation>„%1“ mit einem anderen Programm öffnen?</translation>
    </message>
    <message>
        <source>By its content it is: %1
By its name it is: %2</source>
        <translation>Dem Inhalt nach ist es: %1
Dem Namen nach ist es: %2</translation>
    </message>
    <message>
        <source>No program opens “%1”.</source>
        <translation>Kein Programm öffnet „%1“.</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Teil</translation>
    </message>
    <message>
        <source>“%1” can only be saved: other programs could run it or follow its addresses, or its type is not known.
By its content it is: %2
By its name it is: %3</source>
        <translation>„%1“ kann nur gespeichert werden: andere Programme könnten es ausführen oder seinen Adressen folgen, oder sein Typ ist nicht bekannt.
Nach dem Inhalt ist es: %2
Nach dem Namen ist es: %3</translation>
    </message>
</context>
<context>
    <name>ProblemsPanel</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>Probleme</translation>
    </message>
    <message>
        <source>No problems were found.</source>
        <translation>Es wurden keine Probleme gefunden.</translation>
    </message>
</context>
<context>
    <name>Questions</name>
    <message>
        <source>Save Message</source>
        <translation>Nachricht speichern</translation>
    </message>
    <message>
        <source>Multimedia messages (*.mms)</source>
        <translation>Multimedia-Nachrichten (*.mms)</translation>
    </message>
    <message>
        <source>Receivers will refuse the message or lose something. Save it all the same?</source>
        <translation>Empfänger werden die Nachricht ablehnen oder etwas davon verlieren. Trotzdem speichern?</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>The message was not saved. Save it?</source>
        <translation>Die Nachricht ist nicht gespeichert. Speichern?</translation>
    </message>
    <message>
        <source>%1 x %2 pixels, %3</source>
        <translation>%1 x %2 Pixel, %3</translation>
    </message>
    <message>
        <source>Large Picture</source>
        <translation>Großes Bild</translation>
    </message>
    <message>
        <source>Take a smaller copy of the picture?</source>
        <translation>Eine kleinere Kopie des Bildes nehmen?</translation>
    </message>
    <message>
        <source>The picture: %1
The smaller copy: %2</source>
        <translation>Das Bild: %1
Die kleinere Kopie: %2</translation>
    </message>
    <message>
        <source>Drafts</source>
        <translation>Entwürfe</translation>
    </message>
    <message numerus="yes">
        <source>%n message(s) were not saved when the program ended.</source>
        <translation>
            <numerusform>%n Nachricht war nicht gespeichert, als das Programm endete.</numerusform>
            <numerusform>%n Nachrichten waren nicht gespeichert, als das Programm endete.</numerusform>
        </translation>
    </message>
    <message>
        <source>Go on writing?</source>
        <translation>Weiterschreiben?</translation>
    </message>
    <message>
        <source>&amp;Go On</source>
        <translation>&amp;Weiterschreiben</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Phone number or e-mail address</source>
        <translation>Telefonnummer oder E-Mail-Adresse</translation>
    </message>
    <message>
        <source>“Reply to All” leaves this address out.</source>
        <translation>„Allen antworten“ lässt diese Adresse aus.</translation>
    </message>
    <message>
        <source>Your &amp;address:</source>
        <translation>Ihre &amp;Adresse:</translation>
    </message>
</context>
<context>
    <name>ShortcutsDialog</name>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
</context>
<context>
    <name>SizeGauge</name>
    <message>
        <source>Size of the message</source>
        <translation>Größe der Nachricht</translation>
    </message>
    <message>
        <source>%1 of %2: too large by %3</source>
        <translation>%1 von %2: um %3 zu groß</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>SlideClips</name>
    <message>
        <source>%1 is not played: the slide has too many clips.</source>
        <translation>%1 wird nicht abgespielt: Die Folie hat zu viele Clips.</translation>
    </message>
    <message>
        <source>%1 is of a kind that is not played. It can be saved.</source>
        <translation>%1 ist von einer Art, die nicht abgespielt wird. Die Datei lässt sich speichern.</translation>
    </message>
    <message>
        <source>%1 is not played: %2 It can be saved.</source>
        <translation>%1 wird nicht abgespielt: %2 Die Datei lässt sich speichern.</translation>
    </message>
</context>
<context>
    <name>SlideForm</name>
    <message>
        <source>Above t&amp;he picture</source>
        <translation>Üb&amp;er dem Bild</translation>
    </message>
    <message>
        <source>F&amp;ixed:</source>
        <translation>Fe&amp;st:</translation>
    </message>
    <message>
        <source>Picture or video:</source>
        <translation>Bild oder Video:</translation>
    </message>
    <message>
        <source>Choose &amp;Picture…</source>
        <translation>B&amp;ild wählen …</translation>
    </message>
    <message>
        <source>Pictures and videos (*.jpg *.jpeg *.png *.gif *.bmp *.wbmp *.webp *.3gp *.mp4 *.avi *.mpg);;All files (*)</source>
        <translation>Bilder und Videos (*.jpg *.jpeg *.png *.gif *.bmp *.wbmp *.webp *.3gp *.mp4 *.avi *.mpg);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Sound:</source>
        <translation>Ton:</translation>
    </message>
    <message>
        <source>Choose Soun&amp;d…</source>
        <translation>Ton &amp;wählen …</translation>
    </message>
    <message>
        <source>Sounds (*.amr *.mp3 *.aac *.m4a *.wav *.ogg *.mid *.imy);;All files (*)</source>
        <translation>Töne (*.amr *.mp3 *.aac *.m4a *.wav *.ogg *.mid *.imy);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Page color</source>
        <translation>Seitenfarbe</translation>
    </message>
    <message>
        <source>Pa&amp;ge color:</source>
        <translation>Seitenf&amp;arbe:</translation>
    </message>
    <message>
        <source>&amp;Text:</source>
        <translation>&amp;Text:</translation>
    </message>
    <message>
        <source>Text color</source>
        <translation>Textfarbe</translation>
    </message>
    <message>
        <source>Usual size</source>
        <translation>Übliche Größe</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>Klein</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Groß</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>Textgröße</translation>
    </message>
    <message>
        <source>Text looks:</source>
        <translation>Aussehen des Textes:</translation>
    </message>
    <message>
        <source>Usual color</source>
        <translation>Übliche Farbe</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Andere …</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the sound</source>
        <translation>Den Ton entfernen</translation>
    </message>
    <message>
        <source>Remove the picture or video</source>
        <translation>Bild oder Video entfernen</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Duration of the slide in seconds</source>
        <translation>Dauer der Folie in Sekunden</translation>
    </message>
    <message>
        <source>Duration:</source>
        <translation>Dauer:</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Navy</source>
        <translation>Marineblau</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Silver</source>
        <translation>Silber</translation>
    </message>
    <message>
        <source>%1 is no sound.</source>
        <translation>%1 ist kein Ton.</translation>
    </message>
    <message>
        <source>%1 is neither a picture nor a video.</source>
        <translation>%1 ist weder ein Bild noch ein Video.</translation>
    </message>
</context>
<context>
    <name>SlideStrip</name>
    <message>
        <source>&amp;Add Slide</source>
        <translation>Folie &amp;hinzufügen</translation>
    </message>
    <message>
        <source>Du&amp;plicate Slide</source>
        <translation>Folie &amp;verdoppeln</translation>
    </message>
    <message>
        <source>De&amp;lete Slide</source>
        <translation>Folie &amp;löschen</translation>
    </message>
    <message>
        <source>Move Slide &amp;Up</source>
        <translation>Folie nach &amp;oben</translation>
    </message>
    <message>
        <source>Move Slide Do&amp;wn</source>
        <translation>Folie nach &amp;unten</translation>
    </message>
    <message>
        <source>Slides</source>
        <translation>Folien</translation>
    </message>
    <message>
        <source>Slide %1</source>
        <translation>Folie %1</translation>
    </message>
</context>
<context>
    <name>SmilPanel</name>
    <message>
        <source>SMIL</source>
        <translation>SMIL</translation>
    </message>
    <message>
        <source>The message has no SMIL. Its parts determine the slides.</source>
        <translation>Die Nachricht hat kein SMIL. Ihre Teile bestimmen die Folien.</translation>
    </message>
</context>
<context>
    <name>Stage</name>
    <message>
        <source>Stage</source>
        <translation>Bühne</translation>
    </message>
</context>
<context>
    <name>StagePanel</name>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Abspielen</translation>
    </message>
    <message>
        <source>Pre&amp;vious Slide</source>
        <translation>&amp;Vorige Folie</translation>
    </message>
    <message>
        <source>Ne&amp;xt Slide</source>
        <translation>&amp;Nächste Folie</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Fit to Window</source>
        <translation>Ins &amp;Fenster einpassen</translation>
    </message>
    <message>
        <source>&amp;Handset&apos;s Size</source>
        <translation>Größe des &amp;Handys</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>V&amp;ollbild</translation>
    </message>
    <message>
        <source>Time line</source>
        <translation>Zeitleiste</translation>
    </message>
    <message>
        <source>Remarks on the slide</source>
        <translation>Bemerkungen zur Folie</translation>
    </message>
    <message>
        <source>End of the message</source>
        <translation>Ende der Nachricht</translation>
    </message>
    <message>
        <source>Drawing the slide…</source>
        <translation>Die Folie wird gezeichnet …</translation>
    </message>
    <message>
        <source>The slide takes too much time or memory to draw.</source>
        <translation>Die Folie braucht zum Zeichnen zu viel Zeit oder Speicher.</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>Slide %1 of %2, %3 of %4</source>
        <translation>Folie %1 von %2, %3 von %4</translation>
    </message>
    <message>
        <source>no end</source>
        <translation>ohne Ende</translation>
    </message>
</context>
<context>
    <name>StateBar</name>
    <message numerus="yes">
        <source>%n error(s)</source>
        <translation>
            <numerusform>%n Fehler</numerusform>
            <numerusform>%n Fehler</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation>
            <numerusform>%n Warnung</numerusform>
            <numerusform>%n Warnungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The message was read with %n change(s).</source>
        <translation>
            <numerusform>Die Nachricht wurde mit %n Änderung gelesen.</numerusform>
            <numerusform>Die Nachricht wurde mit %n Änderungen gelesen.</numerusform>
        </translation>
    </message>
    <message>
        <source>It has problems: %1.</source>
        <translation>Sie hat Probleme: %1.</translation>
    </message>
    <message>
        <source>State of the message</source>
        <translation>Zustand der Nachricht</translation>
    </message>
    <message>
        <source>Show &amp;Problems</source>
        <translation>&amp;Probleme zeigen</translation>
    </message>
    <message>
        <source>The message is refused.</source>
        <translation>Die Nachricht wird abgelehnt.</translation>
    </message>
    <message>
        <source>The message is refused: %1</source>
        <translation>Die Nachricht wird abgelehnt: %1</translation>
    </message>
</context>
<context>
    <name>SummaryPanel</name>
    <message>
        <source>Answer to a sent message</source>
        <translation>Antwort auf eine gesendete Nachricht</translation>
    </message>
    <message>
        <source>The relay says whether it took a message.</source>
        <translation>Die Vermittlung sagt, ob sie eine Nachricht angenommen hat.</translation>
    </message>
    <message>
        <source>Notification</source>
        <translation>Benachrichtigung</translation>
    </message>
    <message>
        <source>A message waits at the relay until it expires.</source>
        <translation>Eine Nachricht wartet bei der Vermittlung, bis sie verfällt.</translation>
    </message>
    <message>
        <source>Answer to a notification</source>
        <translation>Antwort auf eine Benachrichtigung</translation>
    </message>
    <message>
        <source>A handset says what it does with a message.</source>
        <translation>Ein Handy sagt, was es mit einer Nachricht macht.</translation>
    </message>
    <message>
        <source>Acknowledgment</source>
        <translation>Empfangsbestätigung</translation>
    </message>
    <message>
        <source>A handset received a message.</source>
        <translation>Ein Handy hat eine Nachricht empfangen.</translation>
    </message>
    <message>
        <source>Delivery report</source>
        <translation>Zustellbericht</translation>
    </message>
    <message>
        <source>The relay says what became of a sent message.</source>
        <translation>Die Vermittlung sagt, was aus einer gesendeten Nachricht geworden ist.</translation>
    </message>
    <message>
        <source>Read report</source>
        <translation>Lesebericht</translation>
    </message>
    <message>
        <source>A recipient says whether a message was read.</source>
        <translation>Ein Empfänger sagt, ob eine Nachricht gelesen wurde.</translation>
    </message>
    <message>
        <source>Kind of message</source>
        <translation>Art der Nachricht</translation>
    </message>
    <message>
        <source>Explanation</source>
        <translation>Erklärung</translation>
    </message>
    <message>
        <source>Refused</source>
        <translation>Abgelehnt</translation>
    </message>
    <message>
        <source>No slides</source>
        <translation>Keine Folien</translation>
    </message>
    <message>
        <source>The file cannot be read</source>
        <translation>Die Datei lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>Multimedia messages</source>
        <translation>Multimedia-Nachrichten</translation>
    </message>
    <message>
        <source>Open a message or a folder of messages, or drop it here.</source>
        <translation>Öffnen Sie eine Nachricht oder einen Ordner mit Nachrichten, oder ziehen Sie sie hierher.</translation>
    </message>
    <message>
        <source>and more</source>
        <translation>und weitere</translation>
    </message>
    <message>
        <source>The panel Details shows them.</source>
        <translation>Der Bereich „Details“ zeigt sie.</translation>
    </message>
    <message>
        <source>Receivers refuse the message. Below is what was read of it.</source>
        <translation>Empfänger lehnen die Nachricht ab. Darunter steht, was von ihr gelesen wurde.</translation>
    </message>
    <message>
        <source>The message has no slides. The panel Parts lists what it has.</source>
        <translation>Die Nachricht hat keine Folien. Der Bereich „Teile“ nennt, was sie hat.</translation>
    </message>
    <message>
        <source>The message has no slides and no parts.</source>
        <translation>Die Nachricht hat keine Folien und keine Teile.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Looks at multimedia messages (MMS) and writes them.</source>
        <translation>Zeigt und schreibt Multimedia-Nachrichten (MMS).</translation>
    </message>
    <message>
        <source>Files or folders to open</source>
        <translation>Dateien oder Ordner, die geöffnet werden</translation>
    </message>
    <message>
        <source>Save a picture of the window as PNG, and end</source>
        <translation>Ein Bild des Fensters als PNG speichern und enden</translation>
    </message>
</context>
</TS>
