<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>vtmenu::MenuViewer</name>
    <message>
        <source>TXT_RID_SOFTKEY_BACK</source>
        <comment>Back</comment>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>vtmenu::DetailViewer</name>
    <message>
        <source>TXT_RID_SOFTKEY_REFRESH</source>
        <comment>Refresh</comment>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>TXT_RID_SOFTKEY_BACK</source>
        <comment>Back</comment>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>UPopup</name>
    <message>
        <source>TXT_RID_SOFTKEY_OK</source>
        <comment>OK</comment>
        <translation>OK</translation>
    </message>
    <message>
        <source>TXT_RID_SOFTKEY_CANCEL</source>
        <comment>Cancel</comment>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>TXT_RID_SOFTKEY_HIDE</source>
        <comment>Hide</comment>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_SAVED</source>
        <comment>Your choice could not be saved.</comment>
        <translation>Ihre Auswahl konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NO_STORE</source>
        <comment>Settings can&apos;t be used here. No choice will be saved.</comment>
        <translation>Die Einstellungen sind hier nicht nutzbar. Keine Auswahl wird gespeichert.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_OPENED</source>
        <comment>No application here opens %1 links.</comment>
        <translation>Hier gibt es keine Anwendung, die %1-Links öffnet.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_KNOWN</source>
        <comment>Nobody says whether the %1 link was opened.</comment>
        <translation>Ob der %1-Link geöffnet wurde, meldet niemand.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NO_APPLICATION</source>
        <comment>The application for this is not here.</comment>
        <translation>Die Anwendung dafür gibt es hier nicht.</translation>
    </message>
</context>
</TS>
