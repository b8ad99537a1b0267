<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>TrackingSettingBodyAdminModule</name>
    <message>
        <source>GUI Settings Tracking</source>
        <translation>Einstellungen der Verfolgung</translation>
    </message>
</context>
</TS>
