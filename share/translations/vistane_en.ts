<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>vtmenu::MenuViewer</name>
    <message>
        <source>TXT_RID_SOFTKEY_BACK</source>
        <comment>Back</comment>
        <translation>Back</translation>
    </message>
</context>
<context>
    <name>vtmenu::DetailViewer</name>
    <message>
        <source>TXT_RID_SOFTKEY_REFRESH</source>
        <comment>Refresh</comment>
        <translation>Refresh</translation>
    </message>
    <message>
        <source>TXT_RID_SOFTKEY_BACK</source>
        <comment>Back</comment>
        <translation>Back</translation>
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
        <translation>Cancel</translation>
    </message>
    <message>
        <source>TXT_RID_SOFTKEY_HIDE</source>
        <comment>Hide</comment>
        <translation>Hide</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_SAVED</source>
        <comment>Your choice could not be saved.</comment>
        <translation>Your choice could not be saved.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NO_STORE</source>
        <comment>Settings can&apos;t be used here. No choice will be saved.</comment>
        <translation>Settings can&apos;t be used here. No choice will be saved.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_OPENED</source>
        <comment>No application here opens %1 links.</comment>
        <translation>No application here opens %1 links.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_KNOWN</source>
        <comment>Nobody says whether the %1 link was opened.</comment>
        <translation>Nobody says whether the %1 link was opened.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NO_APPLICATION</source>
        <comment>The application for this is not here.</comment>
        <translation>The application for this is not here.</translation>
    </message>
</context>
</TS>
