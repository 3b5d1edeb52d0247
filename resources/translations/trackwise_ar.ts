<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar_EG">
<context>
    <name>CopyMenus</name>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
</context>
<context>
    <name>InformationHeader</name>
    <message>
        <source>Information</source>
        <translation>المعلومات</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>عرض أقل</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>عرض المزيد</translation>
    </message>
</context>
<context>
    <name>LyricsView</name>
    <message>
        <source>Lyrics</source>
        <translation>كلمات الأغنية</translation>
    </message>
</context>
<context>
    <name>PushedView</name>
    <message>
        <source>Back</source>
        <translation>رجوع</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>RTL</translation>
    </message>
</context>
</TS>
