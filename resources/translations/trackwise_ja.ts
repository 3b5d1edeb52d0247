<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>CopyMenus</name>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
</context>
<context>
    <name>InformationHeader</name>
    <message>
        <source>Information</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>表示を減らす</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>さらに表示</translation>
    </message>
</context>
<context>
    <name>LyricsView</name>
    <message>
        <source>Lyrics</source>
        <translation>歌詞</translation>
    </message>
</context>
<context>
    <name>PushedView</name>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
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
