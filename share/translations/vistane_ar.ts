<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar">
<context>
    <name>vtmenu::MenuViewer</name>
    <message>
        <source>TXT_RID_SOFTKEY_BACK</source>
        <comment>Back</comment>
        <translation>رجوع</translation>
    </message>
</context>
<context>
    <name>vtmenu::DetailViewer</name>
    <message>
        <source>TXT_RID_SOFTKEY_REFRESH</source>
        <comment>Refresh</comment>
        <translation>تحديث</translation>
    </message>
    <message>
        <source>TXT_RID_SOFTKEY_BACK</source>
        <comment>Back</comment>
        <translation>رجوع</translation>
    </message>
</context>
<context>
    <name>UPopup</name>
    <message>
        <source>TXT_RID_SOFTKEY_OK</source>
        <comment>OK</comment>
        <translation>موافق</translation>
    </message>
    <message>
        <source>TXT_RID_SOFTKEY_CANCEL</source>
        <comment>Cancel</comment>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>TXT_RID_SOFTKEY_HIDE</source>
        <comment>Hide</comment>
        <translation>إخفاء</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_SAVED</source>
        <comment>Your choice could not be saved.</comment>
        <translation>تعذر حفظ اختيارك.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NO_STORE</source>
        <comment>Settings can&apos;t be used here. No choice will be saved.</comment>
        <translation>لا يمكن استخدام الإعدادات هنا. لن يُحفظ أي اختيار.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_OPENED</source>
        <comment>No application here opens %1 links.</comment>
        <translation>لا يوجد تطبيق هنا يفتح روابط ⁨%1⁩.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_KNOWN</source>
        <comment>Nobody says whether the %1 link was opened.</comment>
        <translation>لا يُعرف هل فُتح رابط ⁨%1⁩.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NO_APPLICATION</source>
        <comment>The application for this is not here.</comment>
        <translation>التطبيق المطلوب غير موجود هنا.</translation>
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
