<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>CopyMenus</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>InformationHeader</name>
    <message>
        <source>Information</source>
        <translation>Informationen</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>Weniger anzeigen</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mehr anzeigen</translation>
    </message>
</context>
<context>
    <name>LyricsView</name>
    <message>
        <source>Lyrics</source>
        <translation>Liedtext</translation>
    </message>
</context>
<context>
    <name>PushedView</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>LTR</translation>
    </message>
</context>
</TS>
