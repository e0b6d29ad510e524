<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1">
<context>
    <name>AboutElement</name>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
<context>
    <name>Browser</name>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Web browser not found.
Use that address:
%1</source>
        <translation>Kein Webbrowser gefunden.
Bitte diese Adresse verwenden:
%1</translation>
    </message>
    <message>
        <source>Web browser</source>
        <translation>Webbrowser</translation>
    </message>
    <message>
        <source>Error starting %1</source>
        <translation>Fehler beim Starten von %1</translation>
    </message>
</context>
<context>
    <name>Configurator</name>
    <message>
        <source>Tavolor</source>
        <translation>Tavolor</translation>
    </message>
    <message>
        <source>Copyright (C) 2026 The Tavolor authors. Free software.</source>
        <translation>Copyright (C) 2026 Die Tavolor-Autoren. Freie Software.</translation>
    </message>
    <message>
        <source>Reading the settings of %1...</source>
        <translation>Einstellungen von %1 werden gelesen...</translation>
    </message>
    <message>
        <source>Sending the settings to %1...</source>
        <translation>Einstellungen werden an %1 gesendet...</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The printer did not take the request.</source>
        <translation>Der Drucker hat die Anforderung nicht angenommen.</translation>
    </message>
    <message>
        <source>Test page</source>
        <translation>Testseite</translation>
    </message>
    <message>
        <source>This printer prints its test page through the maintenance wizard, which this version does not offer yet.</source>
        <translation type="unfinished" />
    </message>
</context>
<context>
    <name>Element</name>
    <message>
        <source>Unknown control type</source>
        <translation>Unbekannter Steuerelementtyp</translation>
    </message>
</context>
<context>
    <name>HelpViewer</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>The help page is not installed.</source>
        <translation>Die Hilfeseite ist nicht installiert.</translation>
    </message>
</context>
<context>
    <name>ListElement</name>
    <message>
        <source>Unknown parameter</source>
        <translation>Unbekannter Parameter</translation>
    </message>
</context>
<context>
    <name>PopupForm</name>
    <message>
        <source>Printer Default</source>
        <translation>Druckervorgabe</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>%1 - %2</source>
        <translation>%1 - %2</translation>
    </message>
    <message>
        <source>The following settings cannot be validated and will have empty values:

</source>
        <translation>Die folgenden Einstellungen können nicht geprüft werden und bleiben leer:

</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The printer did not accept the changes, or could not be reached.
Your changes are kept: check the printer and try again.</source>
        <translation>Der Drucker hat die Änderungen nicht angenommen oder war nicht erreichbar.
Ihre Änderungen bleiben erhalten: Bitte den Drucker prüfen und es erneut versuchen.</translation>
    </message>
    <message>
        <source>The '%1' is not a valid entry for '%2'.
Please specify another value</source>
        <translation>„%1“ ist kein gültiger Wert für „%2“.
Bitte einen anderen Wert angeben</translation>
    </message>
</context>
<context>
    <name>SettingsDialogBase</name>
    <message>
        <source>Printer Settings</source>
        <translation>Druckereinstellungen</translation>
    </message>
    <message>
        <source>Favourite groups</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Hide or show the groups</source>
        <translation>Gruppen aus- oder einblenden</translation>
    </message>
    <message>
        <source>Fold the groups list</source>
        <translation>Gruppenliste einklappen</translation>
    </message>
    <message>
        <source>&lt;</source>
        <translation>&lt;</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Put every setting back to the printer's factory value</source>
        <translation>Alle Einstellungen auf die Werkseinstellung des Druckers zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Default</source>
        <translation>&amp;Standard</translation>
    </message>
    <message>
        <source>Send the changed settings to the printer</source>
        <translation>Die geänderten Einstellungen an den Drucker senden</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Cannot get printer settings!</source>
        <translation>Die Druckereinstellungen können nicht gelesen werden!</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
</context>
</TS>
