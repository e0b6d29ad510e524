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
    <name>AcceptedCharacters</name>
    <message>
        <source>Any character except %1</source>
        <translation>Alle Zeichen außer %1</translation>
    </message>
    <message>
        <source>Characters: %1</source>
        <translation>Zeichen: %1</translation>
    </message>
    <message>
        <source>Printable ASCII characters</source>
        <translation>Druckbare ASCII-Zeichen</translation>
    </message>
    <message>
        <source>Printable ASCII characters except %1</source>
        <translation>Druckbare ASCII-Zeichen außer %1</translation>
    </message>
    <message>
        <source>space</source>
        <translation>Leerzeichen</translation>
    </message>
</context>
<context>
    <name>BackupDocument</name>
    <message>
        <source>not a readable XML document</source>
        <translation>kein lesbares XML-Dokument</translation>
    </message>
    <message>
        <source>not a Tavolor backup</source>
        <translation>keine Tavolor-Sicherung</translation>
    </message>
    <message>
        <source>the backup holds no settings</source>
        <translation>die Sicherung enthält keine Einstellungen</translation>
    </message>
    <message>
        <source>malformed entry at line %1</source>
        <translation>fehlerhafter Eintrag in Zeile %1</translation>
    </message>
</context>
<context>
    <name>BackupTransfer</name>
    <message>
        <source>Tavolor backups (*.xml)</source>
        <translation>Tavolor-Sicherungen (*.xml)</translation>
    </message>
    <message>
        <source>Export settings</source>
        <translation>Einstellungen exportieren</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1: the value &apos;%2&apos; is refused: %3</source>
        <translation>%1: der Wert „%2“ wird abgelehnt: %3</translation>
    </message>
    <message>
        <source>Import settings</source>
        <translation>Einstellungen importieren</translation>
    </message>
    <message>
        <source>%1 cannot be imported: %2</source>
        <translation>%1 kann nicht importiert werden: %2</translation>
    </message>
    <message>
        <source>The backup is of the model &apos;%1&apos;, this printer is &apos;%2&apos;. Import it anyway?</source>
        <translation>Die Sicherung stammt vom Modell „%1“, dieser Drucker ist „%2“. Trotzdem importieren?</translation>
    </message>
    <message>
        <source>Nothing was imported:
%1</source>
        <translation>Nichts wurde importiert:
%1</translation>
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
    <name>ChangeReview</name>
    <message>
        <source>Review changes</source>
        <translation>Änderungen prüfen</translation>
    </message>
    <message>
        <source>These settings will be sent to %1:</source>
        <translation>Diese Einstellungen werden an %1 gesendet:</translation>
    </message>
    <message>
        <source>These settings will be cleared (sent without a value):</source>
        <translation>Diese Einstellungen werden geleert (ohne Wert gesendet):</translation>
    </message>
    <message>
        <source>Don&apos;t ask again</source>
        <translation>Nicht mehr fragen</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>%1 → %2</source>
        <translation>%1 → %2</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Value now</source>
        <translation>Jetziger Wert</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
</context>
<context>
    <name>ChooserWindow</name>
    <message>
        <source>&amp;Open settings</source>
        <translation>Einstellungen ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Tavolor: choose a printer</source>
        <translation>Tavolor: Drucker auswählen</translation>
    </message>
    <message>
        <source>No USB printer is connected. Plug one in and it appears here.

To try Tavolor without a printer, start the virtual printer in a terminal:
    tav-vprinter SPECIFICATION.xml --link /tmp/virtual-lp
then open it with:
    tav /tmp/virtual-lp &quot;Virtual printer&quot;
(from a source checkout, &apos;make demo&apos; does both).</source>
        <translation>Kein USB-Drucker ist angeschlossen. Schließen Sie einen an, dann erscheint er hier.

Um Tavolor ohne Drucker auszuprobieren, starten Sie den virtuellen Drucker in einem Terminal:
    tav-vprinter SPEZIFIKATION.xml --link /tmp/virtual-lp
und öffnen ihn dann mit:
    tav /tmp/virtual-lp &quot;Virtual printer&quot;
(in einem Quellcode-Verzeichnis erledigt „make demo“ beides).</translation>
    </message>
    <message>
        <source>Connected printers:</source>
        <translation>Angeschlossene Drucker:</translation>
    </message>
    <message>
        <source>%1 %2 (serial %3) at %4</source>
        <translation>%1 %2 (Seriennummer %3) an %4</translation>
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
    <message>
        <source>The file %1 cannot be read.</source>
        <translation>Die Datei %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The printer sent no settings.</source>
        <translation>Der Drucker hat keine Einstellungen gesendet.</translation>
    </message>
    <message>
        <source>The settings document cannot be read.</source>
        <translation>Das Einstellungsdokument kann nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>CtlMessages</name>
    <message>
        <source>List the USB printers connected now.</source>
        <translation>Die jetzt angeschlossenen USB-Drucker auflisten.</translation>
    </message>
    <message>
        <source>Show the settings as a tree with what each allows.</source>
        <translation>Die Einstellungen als Baum zeigen, mit dem, was jede zulässt.</translation>
    </message>
    <message>
        <source>Print the values of settings.</source>
        <translation>Die Werte von Einstellungen ausgeben.</translation>
    </message>
    <message>
        <source>Check values and send them in one change document.</source>
        <translation>Werte prüfen und in einem Änderungsdokument senden.</translation>
    </message>
    <message>
        <source>Write a backup of every writable setting.</source>
        <translation>Eine Sicherung aller schreibbaren Einstellungen schreiben.</translation>
    </message>
    <message>
        <source>Send the differences between a backup and the device in one change document.</source>
        <translation>Die Unterschiede zwischen einer Sicherung und dem Gerät in einem Änderungsdokument senden.</translation>
    </message>
    <message>
        <source>Compare two devices, specification or backup files.</source>
        <translation>Zwei Geräte, Spezifikations- oder Sicherungsdateien vergleichen.</translation>
    </message>
    <message>
        <source>Print JSON.</source>
        <translation>JSON ausgeben.</translation>
    </message>
    <message>
        <source>Read this settings specification file instead of a device.</source>
        <translation>Diese Einstellungsspezifikation statt eines Geräts lesen.</translation>
    </message>
    <message>
        <source>The printer model, when the device does not report it.</source>
        <translation>Das Druckermodell, wenn das Gerät es nicht meldet.</translation>
    </message>
    <message>
        <source>Only the settings under this group.</source>
        <translation>Nur die Einstellungen unter dieser Gruppe.</translation>
    </message>
    <message>
        <source>Only settings that differ from their factory value.</source>
        <translation>Nur Einstellungen, die von ihrer Werkseinstellung abweichen.</translation>
    </message>
    <message>
        <source>Print the change document and send nothing.</source>
        <translation>Das Änderungsdokument ausgeben und nichts senden.</translation>
    </message>
    <message>
        <source>Write to this file instead of standard output.</source>
        <translation>In diese Datei statt auf die Standardausgabe schreiben.</translation>
    </message>
    <message>
        <source>Accept a backup of another model.</source>
        <translation>Eine Sicherung eines anderen Modells annehmen.</translation>
    </message>
    <message>
        <source>Also import the settings that identify one printer.</source>
        <translation>Auch die Einstellungen importieren, die einen einzelnen Drucker kennzeichnen.</translation>
    </message>
    <message>
        <source>Usage: tavctl COMMAND [OPTIONS]

Commands:
</source>
        <translation>Aufruf: tavctl BEFEHL [OPTIONEN]

Befehle:
</translation>
    </message>
    <message>
        <source>Verbose log.</source>
        <translation>Ausführliches Protokoll.</translation>
    </message>
    <message>
        <source>no command given</source>
        <translation>kein Befehl angegeben</translation>
    </message>
    <message>
        <source>unknown command &apos;%1&apos;</source>
        <translation>unbekannter Befehl „%1“</translation>
    </message>
    <message>
        <source>&apos;tavctl %1 --help&apos; shows how to use it</source>
        <translation>„tavctl %1 --help“ zeigt den Aufruf</translation>
    </message>
    <message>
        <source>--spec only reads: add --dry-run</source>
        <translation>--spec liest nur: --dry-run hinzufügen</translation>
    </message>
    <message>
        <source>name a device or give --spec FILE</source>
        <translation>ein Gerät nennen oder --spec DATEI angeben</translation>
    </message>
    <message>
        <source>no USB printer is connected</source>
        <translation>kein USB-Drucker ist angeschlossen</translation>
    </message>
    <message>
        <source>unexpected operand &apos;%1&apos;</source>
        <translation>unerwartetes Argument „%1“</translation>
    </message>
    <message>
        <source>no such group &apos;%1&apos;</source>
        <translation>keine Gruppe „%1“</translation>
    </message>
    <message>
        <source>name at least one setting</source>
        <translation>mindestens eine Einstellung nennen</translation>
    </message>
    <message>
        <source>%1: no such setting</source>
        <translation>%1: keine solche Einstellung</translation>
    </message>
    <message>
        <source>%1: the value &apos;%2&apos; is refused: %3</source>
        <translation>%1: der Wert „%2“ wird abgelehnt: %3</translation>
    </message>
    <message>
        <source>nothing was sent</source>
        <translation>nichts wurde gesendet</translation>
    </message>
    <message>
        <source>nothing to change</source>
        <translation>nichts zu ändern</translation>
    </message>
    <message>
        <source>the device %1 refused the changes</source>
        <translation>das Gerät %1 hat die Änderungen abgelehnt</translation>
    </message>
    <message>
        <source>the device %1 went away while the change document of %2 was being sent: it may hold all or none of them</source>
        <translation>das Gerät %1 verschwand, während das Änderungsdokument für %2 gesendet wurde: es kann alle oder keine davon übernommen haben</translation>
    </message>
    <message>
        <source>name at least one ID=VALUE</source>
        <translation>mindestens ein ID=WERT nennen</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not ID=VALUE</source>
        <translation>„%1“ ist nicht ID=WERT</translation>
    </message>
    <message>
        <source>cannot write %1: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>name one backup file</source>
        <translation>eine Sicherungsdatei nennen</translation>
    </message>
    <message>
        <source>the backup is of the model &apos;%1&apos;, the device is &apos;%2&apos;: --force imports it anyway; nothing was sent</source>
        <translation>die Sicherung stammt vom Modell „%1“, das Gerät ist „%2“: --force importiert sie trotzdem; nichts wurde gesendet</translation>
    </message>
    <message>
        <source>not on the device: %1</source>
        <translation>nicht auf dem Gerät: %1</translation>
    </message>
    <message>
        <source>left out (identify one printer): %1</source>
        <translation>ausgelassen (kennzeichnen einen einzelnen Drucker): %1</translation>
    </message>
    <message>
        <source>changed: %1</source>
        <translation>geändert: %1</translation>
    </message>
    <message>
        <source>name two devices or files</source>
        <translation>zwei Geräte oder Dateien nennen</translation>
    </message>
    <message>
        <source>cannot open the device %1: %2</source>
        <translation>das Gerät %1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>the device %1 did not send its settings</source>
        <translation>das Gerät %1 hat seine Einstellungen nicht gesendet</translation>
    </message>
    <message>
        <source>cannot read %1</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>the backup %1 is refused: %2</source>
        <translation>die Sicherung %1 wird abgelehnt: %2</translation>
    </message>
    <message>
        <source>the settings of %1 cannot be read: %2</source>
        <translation>die Einstellungen von %1 können nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>not a settings specification</source>
        <translation>keine Einstellungsspezifikation</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>nur lesbar</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>deaktiviert</translation>
    </message>
    <message>
        <source>
DEV is a device node such as /dev/usb/lp0 or, for a USB printer without one, usb:BUS:ADDR (usb:001:002) or usb:serial=SERIAL. &apos;tavctl COMMAND --help&apos; describes one command.
Exit status: 0 done, 1 usage, 2 a value refused, 3 the device refused, 4 the device unreachable.
</source>
        <translation>
DEV ist eine Gerätedatei wie /dev/usb/lp0 oder, für einen USB-Drucker ohne eine solche, usb:BUS:ADRESSE (usb:001:002) oder usb:serial=SERIENNUMMER. „tavctl BEFEHL --help“ beschreibt einen Befehl.
Rückgabewert: 0 erledigt, 1 Aufruffehler, 2 ein Wert abgelehnt, 3 vom Gerät abgelehnt, 4 Gerät nicht erreichbar.
</translation>
    </message>
</context>
<context>
    <name>DeviceAccess</name>
    <message>
        <source>No permission to open %1: install Tavolor&apos;s udev rule (it comes with the package) or add your user to the &quot;lp&quot; group, then plug the printer in again.</source>
        <translation>Keine Berechtigung, %1 zu öffnen: Installieren Sie die udev-Regel von Tavolor (sie kommt mit dem Paket) oder fügen Sie Ihren Benutzer der Gruppe „lp“ hinzu und stecken Sie den Drucker dann erneut ein.</translation>
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
    <name>ElementHelp</name>
    <message>
        <source>%1 – %2, step %3</source>
        <translation>%1 – %2, Schrittweite %3</translation>
    </message>
    <message>
        <source>from %1, step %2</source>
        <translation>ab %1, Schrittweite %2</translation>
    </message>
    <message>
        <source>up to %1, step %2</source>
        <translation>bis %1, Schrittweite %2</translation>
    </message>
    <message>
        <source>step %1</source>
        <translation>Schrittweite %1</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>Changed o&amp;nly</source>
        <translation>&amp;Nur geänderte</translation>
    </message>
    <message>
        <source>Find a setting (Ctrl+F)</source>
        <translation>Einstellung suchen (Strg+F)</translation>
    </message>
    <message>
        <source>Find a setting</source>
        <translation>Einstellung suchen</translation>
    </message>
    <message>
        <source>Show only the settings with changes not yet sent</source>
        <translation>Nur die Einstellungen mit noch nicht gesendeten Änderungen zeigen</translation>
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
    <name>InputRules</name>
    <message>
        <source>no lower limit</source>
        <translation>keine Untergrenze</translation>
    </message>
    <message>
        <source>no upper limit</source>
        <translation>keine Obergrenze</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2 in steps of %3</source>
        <translation>eine ganze Zahl von %1 bis %2 in Schritten von %3</translation>
    </message>
    <message>
        <source>one of: %1</source>
        <translation>eines von: %1</translation>
    </message>
    <message>
        <source>an IPv4 address of four numbers 0 to 255 separated by dots</source>
        <translation>eine IPv4-Adresse aus vier Zahlen von 0 bis 255, durch Punkte getrennt</translation>
    </message>
    <message>
        <source>a subnet mask of four numbers 0 to 255 separated by dots, its one bits in front</source>
        <translation>eine Subnetzmaske aus vier Zahlen von 0 bis 255, durch Punkte getrennt, die Einsen vorn</translation>
    </message>
    <message>
        <source>any text</source>
        <translation>beliebiger Text</translation>
    </message>
    <message>
        <source>text matching %1</source>
        <translation>Text passend zu %1</translation>
    </message>
    <message>
        <source>, at most %1 characters</source>
        <translation>, höchstens %1 Zeichen</translation>
    </message>
    <message>
        <source>nothing: it holds no value</source>
        <translation>nichts: sie hat keinen Wert</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>nur lesbar</translation>
    </message>
    <message>
        <source>a decimal number from %1 to %2 in steps of %3</source>
        <translation>eine Dezimalzahl von %1 bis %2 in Schritten von %3</translation>
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
    <name>PendingQuestion</name>
    <message>
        <source>Changes not sent</source>
        <translation>Änderungen nicht gesendet</translation>
    </message>
    <message>
        <source>1 changed setting has not been sent to the printer.</source>
        <translation>1 geänderte Einstellung wurde nicht an den Drucker gesendet.</translation>
    </message>
    <message>
        <source>%1 changed settings have not been sent to the printer.</source>
        <translation>%1 geänderte Einstellungen wurden nicht an den Drucker gesendet.</translation>
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
    <name>SecretField</name>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Show or hide the text</source>
        <translation>Text zeigen oder verbergen</translation>
    </message>
    <message>
        <source>Show the text</source>
        <translation>Text zeigen</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Verbergen</translation>
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
    <message>
        <source>1 pending change</source>
        <translation>1 ausstehende Änderung</translation>
    </message>
    <message>
        <source>%1 pending changes</source>
        <translation>%1 ausstehende Änderungen</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be undone.
Send it to %2 now?</source>
        <translation>„%1“ kann nicht rückgängig gemacht werden.
Jetzt an %2 senden?</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Every setting already has the printer&apos;s factory value.</source>
        <translation>Jede Einstellung hat bereits den Werkswert des Druckers.</translation>
    </message>
    <message>
        <source>Put settings back to the printer&apos;s factory values?

All groups: %1 setting(s) in %2 group(s).</source>
        <translation>Einstellungen auf die Werkswerte des Druckers zurücksetzen?

Alle Gruppen: %1 Einstellung(en) in %2 Gruppe(n).</translation>
    </message>
    <message>
        <source>&amp;All groups</source>
        <translation>&amp;Alle Gruppen</translation>
    </message>
    <message>
        <source>Only &quot;%1&quot;: %2 setting(s).</source>
        <translation>Nur „%1“: %2 Einstellung(en).</translation>
    </message>
    <message>
        <source>&amp;Only this group</source>
        <translation>Nur diese &amp;Gruppe</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Not sent:</source>
        <translation>Nicht gesendet:</translation>
    </message>
    <message>
        <source>%1 sent</source>
        <translation>%1 gesendet</translation>
    </message>
    <message>
        <source>1 setting sent to %1</source>
        <translation>1 Einstellung an %1 gesendet</translation>
    </message>
    <message>
        <source>%1 settings sent to %2</source>
        <translation>%1 Einstellungen an %2 gesendet</translation>
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
    <message>
        <source>Save every setting of the printer in a backup file</source>
        <translation>Alle Einstellungen des Druckers in einer Sicherungsdatei speichern</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Exportieren...</translation>
    </message>
    <message>
        <source>Take the settings of a backup file as changes; Apply sends them</source>
        <translation>Die Einstellungen einer Sicherungsdatei als Änderungen übernehmen; Übernehmen sendet sie</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>Pending changes</source>
        <translation>Ausstehende Änderungen</translation>
    </message>
</context>
<context>
    <name>SettingsEdit</name>
    <message>
        <source>no such setting</source>
        <translation>keine solche Einstellung</translation>
    </message>
    <message>
        <source>disabled on the device</source>
        <translation>auf dem Gerät deaktiviert</translation>
    </message>
    <message>
        <source>disabled by the value of %1</source>
        <translation>deaktiviert durch den Wert von %1</translation>
    </message>
</context>
<context>
    <name>StartupError</name>
    <message>
        <source>The reason is not known.</source>
        <translation>Der Grund ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Device: %1</source>
        <translation>Gerät: %1</translation>
    </message>
    <message>
        <source>&amp;Retry</source>
        <translation>&amp;Wiederholen</translation>
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
    <message>
        <source>The printer refused the request.</source>
        <translation>Der Drucker hat die Anfrage abgelehnt.</translation>
    </message>
</context>
<context>
    <name>UsbBulkChannel</name>
    <message>
        <source>no such USB printer is connected</source>
        <translation>kein solcher USB-Drucker ist angeschlossen</translation>
    </message>
    <message>
        <source>the USB device has no printer interface</source>
        <translation>das USB-Gerät hat keine Druckerschnittstelle</translation>
    </message>
    <message>
        <source>the kernel driver keeps the printer: %1</source>
        <translation>der Kerneltreiber gibt den Drucker nicht frei: %1</translation>
    </message>
    <message>
        <source>the printer interface cannot be claimed: %1</source>
        <translation>die Druckerschnittstelle kann nicht belegt werden: %1</translation>
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
