<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>HeaderLines</name>
    <message numerus="yes">
        <source>%n more field(s)</source>
        <translation>
            <numerusform>%n more field</numerusform>
            <numerusform>%n more fields</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MessageListModel</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n picture(s)</source>
        <translation>
            <numerusform>%n picture</numerusform>
            <numerusform>%n pictures</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MessageListView</name>
    <message numerus="yes">
        <source>%n other file(s) skipped</source>
        <translation>
            <numerusform>%n other file skipped</numerusform>
            <numerusform>%n other files skipped</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OctetTree</name>
    <message numerus="yes">
        <source>%n octet(s)</source>
        <translation>
            <numerusform>%n octet</numerusform>
            <numerusform>%n octets</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OptionsForm</name>
    <message numerus="yes">
        <source> day(s)</source>
        <translation>
            <numerusform> day</numerusform>
            <numerusform> days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PartsPanel</name>
    <message numerus="yes">
        <source>Saved %n part(s)</source>
        <translation>
            <numerusform>Saved %n part</numerusform>
            <numerusform>Saved %n parts</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Questions</name>
    <message numerus="yes">
        <source>%n message(s) were not saved when the program ended.</source>
        <translation>
            <numerusform>%n message was not saved when the program ended.</numerusform>
            <numerusform>%n messages were not saved when the program ended.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StateBar</name>
    <message numerus="yes">
        <source>%n error(s)</source>
        <translation>
            <numerusform>%n error</numerusform>
            <numerusform>%n errors</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation>
            <numerusform>%n warning</numerusform>
            <numerusform>%n warnings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The message was read with %n change(s).</source>
        <translation>
            <numerusform>The message was read with %n change.</numerusform>
            <numerusform>The message was read with %n changes.</numerusform>
        </translation>
    </message>
</context>
</TS>
