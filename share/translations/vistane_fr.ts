<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>vtmenu::MenuViewer</name>
    <message>
        <source>TXT_RID_SOFTKEY_BACK</source>
        <comment>Back</comment>
        <translation>Retour</translation>
    </message>
</context>
<context>
    <name>vtmenu::DetailViewer</name>
    <message>
        <source>TXT_RID_SOFTKEY_REFRESH</source>
        <comment>Refresh</comment>
        <translation>Actualiser</translation>
    </message>
    <message>
        <source>TXT_RID_SOFTKEY_BACK</source>
        <comment>Back</comment>
        <translation>Retour</translation>
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
        <translation>Annuler</translation>
    </message>
    <message>
        <source>TXT_RID_SOFTKEY_HIDE</source>
        <comment>Hide</comment>
        <translation>Masquer</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_SAVED</source>
        <comment>Your choice could not be saved.</comment>
        <translation>Votre choix n&apos;a pas pu être enregistré.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NO_STORE</source>
        <comment>Settings can&apos;t be used here. No choice will be saved.</comment>
        <translation>Les réglages sont inutilisables ici. Aucun choix ne sera enregistré.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_OPENED</source>
        <comment>No application here opens %1 links.</comment>
        <translation>Aucune application ici n&apos;ouvre les liens %1.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NOT_KNOWN</source>
        <comment>Nobody says whether the %1 link was opened.</comment>
        <translation>Rien n&apos;indique si le lien %1 a été ouvert.</translation>
    </message>
    <message>
        <source>TXT_RID_NOTICE_NO_APPLICATION</source>
        <comment>The application for this is not here.</comment>
        <translation>L&apos;application nécessaire n&apos;est pas présente.</translation>
    </message>
</context>
</TS>
