<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
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
    <name>ClearingQuestion</name>
    <message>
        <source>Clear settings</source>
        <translation>Einstellungen leeren</translation>
    </message>
    <message>
        <source>The printer&apos;s values of these settings could not be validated and are shown empty.
Applying now clears them on the printer as well:</source>
        <translation>Die Werte dieser Einstellungen im Drucker konnten nicht geprüft werden und werden leer angezeigt.
Beim Übernehmen werden sie auch im Drucker geleert:</translation>
    </message>
    <message>
        <source>Clear and apply</source>
        <translation>Leeren und übernehmen</translation>
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
</context>
<context>
    <name>DeviceTask</name>
    <message>
        <source>Waiting for the printer to answer...</source>
        <translation>Warten auf die Antwort des Druckers...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
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
    <name>InkAlignChoicePage</name>
    <message>
        <source>Choose the best patterns</source>
        <translation>Die besten Muster wählen</translation>
    </message>
    <message>
        <source>On each row of the alignment page, find the pattern whose two bars line up best, without a step between them, like C in the picture. Choose its letter for every row.</source>
        <translation>Suchen Sie in jeder Zeile der Ausrichtungsseite das Muster, dessen zwei Balken am besten bündig sind, ohne Versatz, wie C im Bild. Wählen Sie für jede Zeile seinen Buchstaben.</translation>
    </message>
    <message>
        <source>Black and colour, horizontal</source>
        <translation>Schwarz und Farbe, waagerecht</translation>
    </message>
    <message>
        <source>Black and colour, vertical</source>
        <translation>Schwarz und Farbe, senkrecht</translation>
    </message>
    <message>
        <source>Printing in both directions</source>
        <translation>Druck in beide Richtungen</translation>
    </message>
    <message>
        <source>Photo and colour, horizontal</source>
        <translation>Foto und Farbe, waagerecht</translation>
    </message>
    <message>
        <source>Photo and colour, vertical</source>
        <translation>Foto und Farbe, senkrecht</translation>
    </message>
    <message>
        <source>Row &amp;%1: %2</source>
        <translation>Zeile &amp;%1: %2</translation>
    </message>
</context>
<context>
    <name>InkAlignMFPWizard</name>
    <message>
        <source>Aligning the cartridges makes lines and colours meet exactly. The printer prints an alignment page and then reads it back with its scanner.</source>
        <translation>Das Ausrichten der Patronen lässt Linien und Farben genau aufeinandertreffen. Der Drucker druckt eine Ausrichtungsseite und liest sie dann mit seinem Scanner wieder ein.</translation>
    </message>
    <message>
        <source>Align Cartridges</source>
        <translation>Patronen ausrichten</translation>
    </message>
    <message>
        <source>Print the alignment page</source>
        <translation>Ausrichtungsseite drucken</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drucken</translation>
    </message>
    <message>
        <source>Place the page on the scanner glass</source>
        <translation>Seite auf das Scannerglas legen</translation>
    </message>
    <message>
        <source>When the alignment page has printed, lift the scanner lid and lay the page face down on the glass, its top edge in the marked corner. Close the lid, then press Scan.</source>
        <translation>Wenn die Ausrichtungsseite gedruckt ist, öffnen Sie den Scannerdeckel und legen Sie die Seite mit der bedruckten Seite nach unten auf das Glas, die Oberkante in der markierten Ecke. Schließen Sie den Deckel und drücken Sie dann „Scannen“.</translation>
    </message>
    <message>
        <source>&amp;Scan</source>
        <translation>&amp;Scannen</translation>
    </message>
    <message>
        <source>The printer is scanning the alignment page...</source>
        <translation>Der Drucker scannt die Ausrichtungsseite...</translation>
    </message>
    <message>
        <source>Cartridges aligned</source>
        <translation>Patronen ausgerichtet</translation>
    </message>
    <message>
        <source>The printer has scanned the alignment page and aligned its cartridges.</source>
        <translation>Der Drucker hat die Ausrichtungsseite gescannt und seine Patronen ausgerichtet.</translation>
    </message>
    <message>
        <source>Align the cartridges</source>
        <translation>Patronen ausrichten</translation>
    </message>
    <message>
        <source>&amp;Align</source>
        <translation>&amp;Ausrichten</translation>
    </message>
    <message>
        <source>Alignment started</source>
        <translation>Ausrichtung gestartet</translation>
    </message>
    <message>
        <source>The printer has accepted the request and prints the alignment page. Lay it face down on the scanner glass, its top edge in the marked corner, and follow the instructions on the printer&apos;s control panel to scan it.</source>
        <translation>Der Drucker hat den Auftrag angenommen und druckt die Ausrichtungsseite. Legen Sie sie mit der bedruckten Seite nach unten auf das Scannerglas, die Oberkante in der markierten Ecke, und folgen Sie zum Scannen den Anweisungen auf dem Bedienfeld des Druckers.</translation>
    </message>
</context>
<context>
    <name>InkAlignSFPWizard</name>
    <message>
        <source>Align Cartridges</source>
        <translation>Patronen ausrichten</translation>
    </message>
    <message>
        <source>Print the alignment page</source>
        <translation>Ausrichtungsseite drucken</translation>
    </message>
    <message>
        <source>Aligning the cartridges makes lines and colours meet exactly. The printer first prints a page of patterns to choose from.</source>
        <translation>Das Ausrichten der Patronen lässt Linien und Farben genau aufeinandertreffen. Der Drucker druckt zuerst eine Seite mit Mustern zur Auswahl.</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drucken</translation>
    </message>
    <message>
        <source>&amp;Align</source>
        <translation>&amp;Ausrichten</translation>
    </message>
    <message>
        <source>Alignment sent</source>
        <translation>Ausrichtung gesendet</translation>
    </message>
    <message>
        <source>The printer has received your choice and aligns its cartridges.

Print a test page to check the result.</source>
        <translation>Der Drucker hat Ihre Auswahl erhalten und richtet seine Patronen aus.

Drucken Sie eine Testseite, um das Ergebnis zu prüfen.</translation>
    </message>
    <message>
        <source>Align the cartridges</source>
        <translation>Patronen ausrichten</translation>
    </message>
    <message>
        <source>Aligning the cartridges makes lines and colours meet exactly. The printer prints an alignment page and carries out the alignment itself.</source>
        <translation>Das Ausrichten der Patronen lässt Linien und Farben genau aufeinandertreffen. Der Drucker druckt eine Ausrichtungsseite und führt die Ausrichtung selbst durch.</translation>
    </message>
    <message>
        <source>Alignment started</source>
        <translation>Ausrichtung gestartet</translation>
    </message>
    <message>
        <source>The printer has accepted the request and prints the alignment page. Follow any instructions on its control panel.</source>
        <translation>Der Drucker hat den Auftrag angenommen und druckt die Ausrichtungsseite. Folgen Sie den Anweisungen auf seinem Bedienfeld.</translation>
    </message>
</context>
<context>
    <name>InkCleanWizard</name>
    <message>
        <source>Clean Cartridges</source>
        <translation>Patronen reinigen</translation>
    </message>
    <message>
        <source>Clean the cartridges</source>
        <translation>Patronen reinigen</translation>
    </message>
    <message>
        <source>Cleaning flushes the print nozzles of the cartridges. It helps when printouts show streaks, gaps or missing colours.

Cleaning uses ink, so clean only when the print quality needs it. The printer is busy for a minute or two.</source>
        <translation>Die Reinigung spült die Druckdüsen der Patronen durch. Sie hilft, wenn Ausdrucke Streifen, Lücken oder fehlende Farben zeigen.

Die Reinigung verbraucht Tinte; reinigen Sie daher nur, wenn die Druckqualität es erfordert. Der Drucker ist ein bis zwei Minuten beschäftigt.</translation>
    </message>
    <message>
        <source>&amp;Clean</source>
        <translation>&amp;Reinigen</translation>
    </message>
    <message>
        <source>Cleaning started</source>
        <translation>Reinigung gestartet</translation>
    </message>
    <message>
        <source>The printer has received the request and cleans its cartridges now.

A test page shows whether the cleaning helped.</source>
        <translation>Der Drucker hat den Auftrag erhalten und reinigt jetzt seine Patronen.

Eine Testseite zeigt, ob die Reinigung geholfen hat.</translation>
    </message>
    <message>
        <source>Print a &amp;test page after closing this wizard</source>
        <translation>Nach dem Schließen des Assistenten eine &amp;Testseite drucken</translation>
    </message>
</context>
<context>
    <name>InkStepPage</name>
    <message>
        <source>%1

Press &quot;%2&quot; to try again, or Cancel to close.</source>
        <translation>%1

Drücken Sie „%2“, um es erneut zu versuchen, oder „Abbrechen“, um zu schließen.</translation>
    </message>
</context>
<context>
    <name>InkTestPageWizard</name>
    <message>
        <source>Print Test Page</source>
        <translation>Testseite drucken</translation>
    </message>
    <message>
        <source>Load paper</source>
        <translation>Papier einlegen</translation>
    </message>
    <message>
        <source>The test page shows how well every cartridge prints.</source>
        <translation>Die Testseite zeigt, wie gut jede Patrone druckt.</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drucken</translation>
    </message>
    <message>
        <source>Test page sent</source>
        <translation>Testseite gesendet</translation>
    </message>
    <message>
        <source>The printer has received the request and prints the test page.

Check that every colour block is even, without streaks or gaps. If it is not, clean the cartridges.</source>
        <translation>Der Drucker hat den Auftrag erhalten und druckt die Testseite.

Prüfen Sie, ob jeder Farbblock gleichmäßig ist, ohne Streifen oder Lücken. Ist er es nicht, reinigen Sie die Patronen.</translation>
    </message>
</context>
<context>
    <name>InkWizard</name>
    <message>
        <source>The printer did not accept the request, or could not be reached. Check that it is switched on and connected.</source>
        <translation>Der Drucker hat den Auftrag nicht angenommen oder war nicht erreichbar. Prüfen Sie, ob er eingeschaltet und angeschlossen ist.</translation>
    </message>
    <message>
        <source>Sending the command to the printer...</source>
        <translation>Der Befehl wird an den Drucker gesendet...</translation>
    </message>
    <message>
        <source>The printer could not be opened. It may have been switched off or disconnected.</source>
        <translation>Der Drucker konnte nicht geöffnet werden. Möglicherweise wurde er ausgeschaltet oder getrennt.</translation>
    </message>
    <message>
        <source>The printer did not take the command in time.</source>
        <translation>Der Drucker hat den Befehl nicht rechtzeitig angenommen.</translation>
    </message>
    <message>
        <source>The printer did not report the result of the scan.</source>
        <translation>Der Drucker hat das Ergebnis des Scans nicht gemeldet.</translation>
    </message>
    <message>
        <source>The printer could not read the alignment page. Check that it lies face down on the glass, in the marked corner.</source>
        <translation>Der Drucker konnte die Ausrichtungsseite nicht lesen. Prüfen Sie, ob sie mit der bedruckten Seite nach unten in der markierten Ecke auf dem Glas liegt.</translation>
    </message>
    <message>
        <source>Unknown failure.</source>
        <translation>Unbekannter Fehler.</translation>
    </message>
    <message>
        <source>Make sure that plain white paper (Letter or A4) is loaded in the input tray.</source>
        <translation>Achten Sie darauf, dass weißes Normalpapier (Letter oder A4) im Zufuhrfach liegt.</translation>
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
        <source>The &apos;%1&apos; is not a valid entry for &apos;%2&apos;.
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
        <source>Put every setting back to the printer&apos;s factory value</source>
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
    <name>TAVClient</name>
    <message>
        <source>The printer could not be reached.</source>
        <translation>Der Drucker ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>The printer did not answer.</source>
        <translation>Der Drucker hat nicht geantwortet.</translation>
    </message>
    <message>
        <source>The printer stopped in the middle of its answer.</source>
        <translation>Der Drucker hat mitten in seiner Antwort aufgehört.</translation>
    </message>
    <message>
        <source>The printer took too long to answer; it was stopped.</source>
        <translation>Die Antwort des Druckers dauerte zu lange; sie wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The exchange was cancelled.</source>
        <translation>Der Austausch wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The printer&apos;s answer did not match the request.</source>
        <translation>Die Antwort des Druckers passte nicht zur Anfrage.</translation>
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
