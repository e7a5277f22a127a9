<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ChangeEdits</name>
    <message>
        <source>This property cannot be changed now.</source>
        <translation>Diese Eigenschaft kann jetzt nicht geändert werden.</translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; from the device? This cannot be undone.</source>
        <translation>„%1“ vom Gerät löschen? Das kann nicht rückgängig gemacht werden.</translation>
    </message>
</context>
<context>
    <name>Details</name>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Internal clock</source>
        <translation>Interner Takt</translation>
    </message>
    <message>
        <source>External signal</source>
        <translation>Externes Signal</translation>
    </message>
    <message>
        <source>An input</source>
        <translation>Ein Eingang</translation>
    </message>
    <message>
        <source>as the signal</source>
        <translation>wie das Signal</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>Farbton</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Sättigung</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>Gamma</translation>
    </message>
    <message>
        <source>Show pattern</source>
        <translation>Testbild zeigen</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Testbild</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>MAC address</source>
        <translation>MAC-Adresse</translation>
    </message>
    <message>
        <source>Cards</source>
        <translation>Karten</translation>
    </message>
    <message>
        <source>A take swaps preview and programme</source>
        <translation>Take tauscht Vorschau und Programm</translation>
    </message>
    <message>
        <source>Presets go to</source>
        <translation>Presets gehen in</translation>
    </message>
    <message>
        <source>ZeLK</source>
        <translation>ZeLK</translation>
    </message>
    <message>
        <source>Locked to</source>
        <translation>Synchronisiert auf</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Synchronisiert</translation>
    </message>
    <message>
        <source>Convert</source>
        <translation>Konvertieren</translation>
    </message>
    <message>
        <source>Conversion</source>
        <translation>Konvertierung</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>Signal</translation>
    </message>
    <message>
        <source>Colour depth</source>
        <translation>Farbtiefe</translation>
    </message>
    <message>
        <source>Copy protection (HDCP)</source>
        <translation>Kopierschutz (HDCP)</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Refresh rate</source>
        <translation>Bildrate</translation>
    </message>
    <message>
        <source>Interlaced</source>
        <translation>Zeilensprung</translation>
    </message>
    <message>
        <source>Colour space</source>
        <translation>Farbraum</translation>
    </message>
    <message>
        <source>Colour range</source>
        <translation>Farbbereich</translation>
    </message>
    <message>
        <source>Show a part</source>
        <translation>Ausschnitt zeigen</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Cut out</source>
        <translation>Freistellen</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgänge</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Left on the canvas</source>
        <translation>Links auf der Arbeitsfläche</translation>
    </message>
    <message>
        <source>Top on the canvas</source>
        <translation>Oben auf der Arbeitsfläche</translation>
    </message>
    <message>
        <source>Physical width</source>
        <translation>Physische Breite</translation>
    </message>
    <message>
        <source>Physical height</source>
        <translation>Physische Höhe</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Eingefroren</translation>
    </message>
    <message>
        <source>Faded to black</source>
        <translation>Auf Schwarz</translation>
    </message>
    <message>
        <source>Duration of the fade</source>
        <translation>Dauer der Blende</translation>
    </message>
    <message>
        <source>Transition</source>
        <translation>Übergang</translation>
    </message>
    <message>
        <source>Duration of the transition</source>
        <translation>Dauer des Übergangs</translation>
    </message>
    <message>
        <source>Direction of the transition</source>
        <translation>Richtung des Übergangs</translation>
    </message>
    <message>
        <source>Edits go to the programme</source>
        <translation>Änderungen gehen in das Programm</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Place in the stack</source>
        <translation>Position im Stapel</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Monochrome</source>
        <translation>Schwarzweiß</translation>
    </message>
    <message>
        <source>Inverted colours</source>
        <translation>Invertierte Farben</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Spiegelung</translation>
    </message>
    <message>
        <source>Show test colour</source>
        <translation>Testfarbe zeigen</translation>
    </message>
    <message>
        <source>Test colour</source>
        <translation>Testfarbe</translation>
    </message>
    <message>
        <source>Mask edges</source>
        <translation>Ränder maskieren</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Show border</source>
        <translation>Rahmen zeigen</translation>
    </message>
    <message>
        <source>Horizontal width</source>
        <translation>Horizontale Breite</translation>
    </message>
    <message>
        <source>Vertical width</source>
        <translation>Vertikale Breite</translation>
    </message>
    <message>
        <source>Show shadow</source>
        <translation>Schatten zeigen</translation>
    </message>
    <message>
        <source>Soft edge</source>
        <translation>Weiche Kante</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Picture size</source>
        <translation>Bildgröße</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Switching</source>
        <translation>Umschalten</translation>
    </message>
    <message>
        <source>Genlock</source>
        <translation>Genlock</translation>
    </message>
    <message>
        <source>Dynamic range</source>
        <translation>Dynamikumfang</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>Schnittstelle</translation>
    </message>
    <message>
        <source>Requested format</source>
        <translation>Angefordertes Format</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Beschnitt</translation>
    </message>
    <message>
        <source>Image quality</source>
        <translation>Bildqualität</translation>
    </message>
    <message>
        <source>Cutout</source>
        <translation>Freistellung</translation>
    </message>
    <message>
        <source>Test pattern</source>
        <translation>Testbild</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Screen</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Live</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Layer</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Mask</source>
        <translation>Maske</translation>
    </message>
    <message>
        <source>Border</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>Schatten</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Preset of screens</source>
        <translation>Preset von Screens</translation>
    </message>
    <message>
        <source>Preset of the device</source>
        <translation>Preset des Geräts</translation>
    </message>
    <message>
        <source>No signal</source>
        <translation>Kein Signal</translation>
    </message>
    <message>
        <source>interlaced</source>
        <translation>Zeilensprung</translation>
    </message>
    <message>
        <source>%1 × %2, %3 Hz %4</source>
        <extracomment>Width and height in pixels, refresh rate, &quot;interlaced&quot; or nothing</extracomment>
        <translation>%1 × %2, %3 Hz %4</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>%1 × %2 px</source>
        <translation>%1 × %2 px</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Type %1</source>
        <translation>Typ %1</translation>
    </message>
</context>
<context>
    <name>LayerSources</name>
    <message>
        <source>Screen %1</source>
        <translation>Screen %1</translation>
    </message>
    <message>
        <source>Image %1</source>
        <translation>Bild %1</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <extracomment>Name of a source, and the format of its picture</extracomment>
        <translation>%1 – %2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Actions</name>
    <message>
        <source>%1: %2</source>
        <extracomment>&quot;Undo&quot; or &quot;Redo&quot;, and what the operator did</extracomment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Puts the preview of the selected screens on the programme with their transition.</source>
        <translation>Bringt die Vorschau der ausgewählten Screens mit ihrem Übergang ins Programm.</translation>
    </message>
    <message>
        <source>Puts the preview of the selected screens on the programme at once.</source>
        <translation>Bringt die Vorschau der ausgewählten Screens sofort ins Programm.</translation>
    </message>
    <message>
        <source>Freezes the picture of the selected screens, or releases it.</source>
        <translation>Friert das Bild der ausgewählten Screens ein oder gibt es frei.</translation>
    </message>
    <message>
        <source>Fades the selected screens to black, or back to the picture.</source>
        <translation>Blendet die ausgewählten Screens ins Schwarz oder zurück zum Bild.</translation>
    </message>
    <message>
        <source>Selects all screens of the device.</source>
        <translation>Wählt alle Screens des Geräts aus.</translation>
    </message>
    <message>
        <source>Takes the last change back.</source>
        <translation>Nimmt die letzte Änderung zurück.</translation>
    </message>
    <message>
        <source>Makes the change again that was undone last.</source>
        <translation>Führt die zuletzt rückgängig gemachte Änderung wieder aus.</translation>
    </message>
    <message>
        <source>Moves the selected layer up by one.</source>
        <translation>Bewegt den ausgewählten Layer um eins nach oben.</translation>
    </message>
    <message>
        <source>Moves the selected layer down by one.</source>
        <translation>Bewegt den ausgewählten Layer um eins nach unten.</translation>
    </message>
    <message>
        <source>Moves the selected layer above all others.</source>
        <translation>Bewegt den ausgewählten Layer über alle anderen.</translation>
    </message>
    <message>
        <source>Moves the selected layer below all others that are not backgrounds.</source>
        <translation>Bewegt den ausgewählten Layer unter alle anderen, die keine Hintergründe sind.</translation>
    </message>
    <message>
        <source>Increases the opacity of the selected layer by 5 percent.</source>
        <translation>Erhöht die Deckkraft des ausgewählten Layers um 5 Prozent.</translation>
    </message>
    <message>
        <source>Reduces the opacity of the selected layer by 5 percent.</source>
        <translation>Verringert die Deckkraft des ausgewählten Layers um 5 Prozent.</translation>
    </message>
    <message>
        <source>Saves the selected screens as a preset on the device.</source>
        <translation>Speichert die ausgewählten Screens als Preset auf dem Gerät.</translation>
    </message>
    <message>
        <source>Opens a device by its address.</source>
        <translation>Öffnet ein Gerät über seine Adresse.</translation>
    </message>
    <message>
        <source>Disconnects the device and removes it from the list.</source>
        <translation>Trennt das Gerät und entfernt es aus der Liste.</translation>
    </message>
    <message>
        <source>Searches the network for devices, until it is switched off.</source>
        <translation>Sucht im Netzwerk nach Geräten, bis es ausgeschaltet wird.</translation>
    </message>
    <message>
        <source>Tries to connect at once instead of after the pause.</source>
        <translation>Versucht sofort statt erst nach der Pause, eine Verbindung herzustellen.</translation>
    </message>
    <message>
        <source>Reads the whole device again.</source>
        <translation>Liest das ganze Gerät neu.</translation>
    </message>
    <message>
        <source>Takes control of the device unless another client holds it.</source>
        <translation>Übernimmt die Steuerung des Geräts, falls kein anderer Client sie hat.</translation>
    </message>
    <message>
        <source>Takes control of the device even if another client holds it.</source>
        <translation>Übernimmt die Steuerung des Geräts, auch wenn ein anderer Client sie hat.</translation>
    </message>
    <message>
        <source>Gives up control of the device, so that another client can take it.</source>
        <translation>Gibt die Steuerung des Geräts ab, damit ein anderer Client sie übernehmen kann.</translation>
    </message>
    <message>
        <source>Ends the program. The devices keep their state.</source>
        <translation>Beendet das Programm. Die Geräte behalten ihren Zustand.</translation>
    </message>
    <message>
        <source>Enlarges the canvas.</source>
        <translation>Vergrößert die Arbeitsfläche.</translation>
    </message>
    <message>
        <source>Reduces the canvas.</source>
        <translation>Verkleinert die Arbeitsfläche.</translation>
    </message>
    <message>
        <source>Shows all screens of the device.</source>
        <translation>Zeigt alle Screens des Geräts.</translation>
    </message>
    <message>
        <source>Shows the window in dark colours.</source>
        <translation>Zeigt das Fenster in dunklen Farben.</translation>
    </message>
    <message>
        <source>Shows the window in light colours.</source>
        <translation>Zeigt das Fenster in hellen Farben.</translation>
    </message>
    <message>
        <source>Shows the window in the colours of the desktop.</source>
        <translation>Zeigt das Fenster in den Farben des Desktops.</translation>
    </message>
    <message>
        <source>Copies the selected messages of the log as text, or all if none is selected.</source>
        <translation>Kopiert die ausgewählten Meldungen des Protokolls als Text, oder alle, wenn keine ausgewählt ist.</translation>
    </message>
    <message>
        <source>Removes the alert of the live bar.</source>
        <translation>Entfernt den Alarm der Live-Leiste.</translation>
    </message>
    <message>
        <source>Lists all keyboard shortcuts.</source>
        <translation>Listet alle Tastenkürzel auf.</translation>
    </message>
    <message>
        <source>&amp;Take</source>
        <translation>&amp;Take</translation>
    </message>
    <message>
        <source>&amp;Cut</source>
        <translation>&amp;Schnitt</translation>
    </message>
    <message>
        <source>F&amp;reeze</source>
        <translation>Ein&amp;frieren</translation>
    </message>
    <message>
        <source>Fade to &amp;black</source>
        <translation>Schwarz&amp;blende</translation>
    </message>
    <message>
        <source>Select &amp;all screens</source>
        <translation>&amp;Alle Screens auswählen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>R&amp;aise layer</source>
        <translation>Layer an&amp;heben</translation>
    </message>
    <message>
        <source>L&amp;ower layer</source>
        <translation>Layer ab&amp;senken</translation>
    </message>
    <message>
        <source>Raise layer to &amp;top</source>
        <translation>Layer ganz nach &amp;oben</translation>
    </message>
    <message>
        <source>Lower layer to botto&amp;m</source>
        <translation>Layer ganz nach &amp;unten</translation>
    </message>
    <message>
        <source>More opa&amp;que</source>
        <translation>&amp;Deckender</translation>
    </message>
    <message>
        <source>L&amp;ess opaque</source>
        <translation>Durchs&amp;ichtiger</translation>
    </message>
    <message>
        <source>&amp;Save preset…</source>
        <translation>&amp;Preset speichern…</translation>
    </message>
    <message>
        <source>&amp;Add device…</source>
        <translation>Gerät &amp;hinzufügen…</translation>
    </message>
    <message>
        <source>Remo&amp;ve device</source>
        <translation>Gerät ent&amp;fernen</translation>
    </message>
    <message>
        <source>&amp;Find devices</source>
        <translation>Geräte &amp;suchen</translation>
    </message>
    <message>
        <source>Re&amp;connect now</source>
        <translation>&amp;Jetzt neu verbinden</translation>
    </message>
    <message>
        <source>&amp;Read again</source>
        <translation>&amp;Neu lesen</translation>
    </message>
    <message>
        <source>&amp;Take control</source>
        <translation>S&amp;teuerung übernehmen</translation>
    </message>
    <message>
        <source>F&amp;orce control…</source>
        <translation>Steuerung er&amp;zwingen…</translation>
    </message>
    <message>
        <source>Re&amp;lease control</source>
        <translation>Steuerung ab&amp;geben</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Fit to window</source>
        <translation>An &amp;Fenster anpassen</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>As the &amp;system</source>
        <translation>Wie das &amp;System</translation>
    </message>
    <message>
        <source>&amp;Copy log</source>
        <translation>&amp;Protokoll kopieren</translation>
    </message>
    <message>
        <source>Dismiss &amp;alert</source>
        <translation>&amp;Alarm ausblenden</translation>
    </message>
    <message>
        <source>&amp;Keyboard shortcuts</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::AddDeviceDialog</name>
    <message>
        <source>Add a device</source>
        <translation>Gerät hinzufügen</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>IP address or host name of the device</source>
        <translation>IP-Adresse oder Hostname des Geräts</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>TCP port of the device, 1 to 65535</source>
        <translation>TCP-Port des Geräts, 1 bis 65535</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Opens the device at this address</source>
        <translation>Öffnet das Gerät unter dieser Adresse</translation>
    </message>
    <message>
        <source>Closes the dialog without a new device</source>
        <translation>Schließt den Dialog ohne neues Gerät</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse:</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>&amp;Port:</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::CanvasView</name>
    <message>
        <source>Canvas</source>
        <translation>Arbeitsfläche</translation>
    </message>
    <message>
        <source>No layer is selected.</source>
        <translation>Kein Layer ist ausgewählt.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Changes</name>
    <message>
        <source>&quot;%1&quot; cannot be undone or redone: the device is no longer open.</source>
        <translation>„%1“ kann weder rückgängig gemacht noch wiederhergestellt werden: Das Gerät ist nicht mehr geöffnet.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ChoiceEditor</name>
    <message>
        <source>Code %1</source>
        <translation>Code %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ControlBar</name>
    <message>
        <source>Control</source>
        <translation>Steuerung</translation>
    </message>
    <message>
        <source>This panel controls the device.</source>
        <translation>Dieses Panel steuert das Gerät.</translation>
    </message>
    <message>
        <source>Control of the device was released.</source>
        <translation>Die Steuerung des Geräts wurde abgegeben.</translation>
    </message>
    <message>
        <source>No device</source>
        <translation>Kein Gerät</translation>
    </message>
    <message>
        <source>Not controlled</source>
        <translation>Nicht gesteuert</translation>
    </message>
    <message>
        <source>Controlled by this panel</source>
        <translation>Von diesem Panel gesteuert</translation>
    </message>
    <message>
        <source>Controlled by another client</source>
        <translation>Von einem anderen Client gesteuert</translation>
    </message>
    <message>
        <source>Controlled by %1</source>
        <translation>Gesteuert von %1</translation>
    </message>
    <message>
        <source>Force control</source>
        <translation>Steuerung erzwingen</translation>
    </message>
    <message>
        <source>Another operator may be working with %1. Take control from them?</source>
        <translation>Vielleicht arbeitet gerade jemand anderes mit %1. Steuerung übernehmen?</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DemoBar</name>
    <message>
        <source>Demo: a simulated device in this program.</source>
        <translation>Demo: ein simuliertes Gerät in diesem Programm.</translation>
    </message>
    <message>
        <source>Pull the plug</source>
        <translation>Stecker ziehen</translation>
    </message>
    <message>
        <source>Plug it in again</source>
        <translation>Wieder einstecken</translation>
    </message>
    <message>
        <source>Makes the simulated device go away</source>
        <translation>Lässt das simulierte Gerät verschwinden</translation>
    </message>
    <message>
        <source>Makes the simulated device come back</source>
        <translation>Lässt das simulierte Gerät zurückkehren</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DetailsForm</name>
    <message>
        <source>%1 to %2%3</source>
        <extracomment>The range of a number, and its unit or nothing</extracomment>
        <translation>%1 bis %2%3</translation>
    </message>
    <message>
        <source>This property cannot be changed.</source>
        <translation>Diese Eigenschaft kann nicht geändert werden.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DetailsView</name>
    <message>
        <source>Layer</source>
        <translation>Layer</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Screen</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Kind of object</source>
        <translation>Art des Objekts</translation>
    </message>
    <message>
        <source>Selects whose properties are shown</source>
        <translation>Wählt, wessen Eigenschaften gezeigt werden</translation>
    </message>
    <message>
        <source>Nothing is selected.</source>
        <translation>Nichts ist ausgewählt.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DevicesView</name>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>The devices with their states. The selected one is shown and operated.</source>
        <translation>Die Geräte mit ihren Zuständen. Das ausgewählte wird gezeigt und bedient.</translation>
    </message>
    <message>
        <source>No device yet. Add one by its address, or search the network.</source>
        <translation>Noch kein Gerät. Fügen Sie eines über seine Adresse hinzu oder durchsuchen Sie das Netzwerk.</translation>
    </message>
    <message>
        <source>Searching the network for devices.</source>
        <translation>Das Netzwerk wird nach Geräten durchsucht.</translation>
    </message>
    <message>
        <source>The search for devices has ended.</source>
        <translation>Die Suche nach Geräten ist beendet.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::FilesView</name>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen…</translation>
    </message>
    <message>
        <source>Sends images from this computer.</source>
        <translation>Sendet Bilder von diesem Computer.</translation>
    </message>
    <message>
        <source>Save a copy…</source>
        <translation>Kopie speichern…</translation>
    </message>
    <message>
        <source>Saves the image on this computer.</source>
        <translation>Speichert das Bild auf diesem Computer.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Renames the selected image (F2).</source>
        <translation>Benennt das ausgewählte Bild um (F2).</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Löschen…</translation>
    </message>
    <message>
        <source>Deletes the image from the device.</source>
        <translation>Löscht das Bild vom Gerät.</translation>
    </message>
    <message>
        <source>Images on the device</source>
        <translation>Bilder auf dem Gerät</translation>
    </message>
    <message>
        <source>Drop image files here to send them to the device.</source>
        <translation>Bilddateien hier ablegen, um sie an das Gerät zu senden.</translation>
    </message>
    <message>
        <source>Type of new images</source>
        <translation>Typ neuer Bilder</translation>
    </message>
    <message>
        <source>Images that are added become files of this type.</source>
        <translation>Hinzugefügte Bilder werden Dateien dieses Typs.</translation>
    </message>
    <message>
        <source>Add images</source>
        <translation>Bilder hinzufügen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an image.</source>
        <translation>„%1“ ist kein Bild.</translation>
    </message>
    <message>
        <source>The device has no room for another image of this type.</source>
        <translation>Das Gerät hat keinen Platz für ein weiteres Bild dieses Typs.</translation>
    </message>
    <message>
        <source>↑ %1</source>
        <extracomment>Name of a file that is sent to the device</extracomment>
        <translation>↑ %1</translation>
    </message>
    <message>
        <source>Save a copy</source>
        <translation>Kopie speichern</translation>
    </message>
    <message>
        <source>↓ %1</source>
        <extracomment>Name of a file that is fetched from the device</extracomment>
        <translation>↓ %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Hint</name>
    <message>
        <source>Select a device to see its screens.</source>
        <translation>Wählen Sie ein Gerät, um seine Screens zu sehen.</translation>
    </message>
    <message>
        <source>Not connected. This is the last known state of the device.</source>
        <translation>Nicht verbunden. Dies ist der letzte bekannte Zustand des Geräts.</translation>
    </message>
    <message>
        <source>The device is not connected.</source>
        <translation>Das Gerät ist nicht verbunden.</translation>
    </message>
    <message>
        <source>Connecting to the device…</source>
        <translation>Verbindung zum Gerät wird hergestellt…</translation>
    </message>
    <message>
        <source>Reading the device…</source>
        <translation>Das Gerät wird gelesen…</translation>
    </message>
    <message>
        <source>The device has no screens.</source>
        <translation>Das Gerät hat keine Screens.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ImagesModel</name>
    <message>
        <source>%1, %2, %3</source>
        <extracomment>Type of the file, size of the picture, length of the file</extracomment>
        <translation>%1, %2, %3</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerEditor</name>
    <message>
        <source>%1 cannot be changed: another client controls the device.</source>
        <translation>%1 kann nicht geändert werden: Ein anderer Client steuert das Gerät.</translation>
    </message>
    <message>
        <source>%1 cannot be changed: the device is not connected.</source>
        <translation>%1 kann nicht geändert werden: Das Gerät ist nicht verbunden.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerFace</name>
    <message>
        <source>Screen %1</source>
        <translation>Screen %1</translation>
    </message>
    <message>
        <source>Source %1/%2</source>
        <translation>Quelle %1/%2</translation>
    </message>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1×%2i%3</source>
        <translation>%1×%2i%3</translation>
    </message>
    <message>
        <source>%1×%2p%3</source>
        <translation>%1×%2p%3</translation>
    </message>
    <message>
        <source>No source</source>
        <translation>Keine Quelle</translation>
    </message>
    <message>
        <source>No signal</source>
        <translation>Kein Signal</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Eingefroren</translation>
    </message>
    <message>
        <source>Test colour</source>
        <translation>Testfarbe</translation>
    </message>
    <message>
        <source>Opacity %1 %</source>
        <translation>Deckkraft %1 %</translation>
    </message>
    <message>
        <source>no source</source>
        <translation>keine Quelle</translation>
    </message>
    <message>
        <source>%1 at %2, %3</source>
        <translation>%1 bei %2, %3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Image %1</source>
        <translation>Bild %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerMenu</name>
    <message>
        <source>&amp;Source</source>
        <translation>&amp;Quelle</translation>
    </message>
    <message>
        <source>&amp;Opacity</source>
        <translation>&amp;Deckkraft</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerSources</name>
    <message>
        <source>No source</source>
        <translation>Keine Quelle</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveBar</name>
    <message>
        <source>Some screens</source>
        <translation>Einige Screens</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Eingefroren</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Select a device to operate its screens.</source>
        <translation>Wählen Sie ein Gerät, um seine Screens zu bedienen.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 is controlled by another client. Take control to operate it.</source>
        <translation>%1 wird von einem anderen Client gesteuert. Übernehmen Sie die Steuerung, um es zu bedienen.</translation>
    </message>
    <message>
        <source>Select a screen to operate it.</source>
        <translation>Wählen Sie einen Screen, um ihn zu bedienen.</translation>
    </message>
    <message>
        <source>Operating %1 of %2.</source>
        <translation>In Bedienung: %1 von %2.</translation>
    </message>
    <message>
        <source>%1 is controlled by %2. Take control to operate it.</source>
        <translation>%1 wird von %2 gesteuert. Übernehmen Sie die Steuerung, um es zu bedienen.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveButton</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveCalls</name>
    <message>
        <source>%1: no answer to the %2 yet.</source>
        <translation>%1: noch keine Antwort (%2).</translation>
    </message>
    <message>
        <source>%1: the connection was lost during the %2. The device is asked for the outcome when it is back.</source>
        <translation>%1: Die Verbindung ging verloren (%2). Das Gerät wird nach dem Ergebnis gefragt, wenn es wieder da ist.</translation>
    </message>
    <message>
        <source>%1: the device has carried out the %2.</source>
        <translation>%1: vom Gerät ausgeführt (%2).</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveOperations</name>
    <message>
        <source>take</source>
        <translation>Take</translation>
    </message>
    <message>
        <source>cut</source>
        <translation>Schnitt</translation>
    </message>
    <message>
        <source>freeze</source>
        <translation>Einfrieren</translation>
    </message>
    <message>
        <source>release of the freeze</source>
        <translation>Freigabe des Standbilds</translation>
    </message>
    <message>
        <source>fade to black</source>
        <translation>Schwarzblende</translation>
    </message>
    <message>
        <source>fade to the picture</source>
        <translation>Aufblende</translation>
    </message>
    <message>
        <source>move of the T-bar</source>
        <translation>Bewegung der T-Bar</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LogView</name>
    <message>
        <source>&amp;Show:</source>
        <translation>&amp;Zeigen:</translation>
    </message>
    <message>
        <source>Messages that are shown</source>
        <translation>Angezeigte Meldungen</translation>
    </message>
    <message>
        <source>Shows all messages, only problems, or every request</source>
        <translation>Zeigt alle Meldungen, nur Probleme oder jede Anfrage</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>The messages of this run, the latest one last</source>
        <translation>Die Meldungen dieses Laufs, die neueste zuletzt</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Problems only</source>
        <translation>Nur Probleme</translation>
    </message>
    <message>
        <source>Every request</source>
        <translation>Jede Anfrage</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::MainWindow</name>
    <message>
        <source>Operator&apos;s panel</source>
        <translation>Bedienpanel</translation>
    </message>
    <message>
        <source>Parts below the canvas</source>
        <translation>Bereiche unter der Arbeitsfläche</translation>
    </message>
    <message>
        <source>Selects presets, sources, images or the log</source>
        <translation>Wählt Presets, Quellen, Bilder oder das Protokoll</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>&amp;Gerät</translation>
    </message>
    <message>
        <source>&amp;Live</source>
        <translation>&amp;Live</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Steuerung</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Canvas</source>
        <translation>Arbeitsfläche</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Presets</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>Quellen</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Live controls</source>
        <translation>Live-Bedienung</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Messages</name>
    <message>
        <source>Detail</source>
        <translation>Detail</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Severity</source>
        <translation>Schweregrad</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Options</name>
    <message>
        <source>Operates networked video processors.</source>
        <translation>Bedient vernetzte Videoprozessoren.</translation>
    </message>
    <message>
        <source>Shows this help.</source>
        <translation>Zeigt diese Hilfe.</translation>
    </message>
    <message>
        <source>Shows the version.</source>
        <translation>Zeigt die Version.</translation>
    </message>
    <message>
        <source>Starts with a simulated device. Other devices are neither opened nor stored.</source>
        <translation>Startet mit einem simulierten Gerät. Andere Geräte werden weder geöffnet noch gespeichert.</translation>
    </message>
    <message>
        <source>Colours: dark, light or system.</source>
        <translation>Farben: dark, light oder system.</translation>
    </message>
    <message>
        <source>File that keeps the devices.</source>
        <translation>Datei, in der die Geräte gespeichert werden.</translation>
    </message>
    <message>
        <source>Devices to open: HOST or HOST:PORT.</source>
        <translation>Zu öffnende Geräte: HOST oder HOST:PORT.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a theme; use dark, light or system.</source>
        <translation>„%1“ ist kein Farbschema; möglich sind dark, light oder system.</translation>
    </message>
    <message>
        <source>DEVICE is a device to open: HOST or HOST:PORT.</source>
        <translation>DEVICE ist ein zu öffnendes Gerät: HOST oder HOST:PORT.</translation>
    </message>
    <message>
        <source>The window was closed.</source>
        <translation>Das Fenster wurde geschlossen.</translation>
    </message>
    <message>
        <source>The command line is not valid.</source>
        <translation>Die Befehlszeile ist ungültig.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::PresetList</name>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Anwenden</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>&amp;Löschen…</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::PresetsModel</name>
    <message>
        <source>The layout of this preset is not known.</source>
        <translation>Die Anordnung dieses Presets ist nicht bekannt.</translation>
    </message>
    <message>
        <source>%1; layers: %2</source>
        <extracomment>Names of screens, number of layers</extracomment>
        <translation>%1; Layer: %2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::PresetsView</name>
    <message>
        <source>Presets</source>
        <translation>Presets</translation>
    </message>
    <message>
        <source>A click or Return applies a preset.</source>
        <translation>Ein Klick oder die Eingabetaste wendet ein Preset an.</translation>
    </message>
    <message>
        <source>The device has no presets. Save the first one.</source>
        <translation>Das Gerät hat keine Presets. Speichern Sie das erste.</translation>
    </message>
    <message>
        <source>Apply to the preview</source>
        <translation>Auf die Vorschau anwenden</translation>
    </message>
    <message>
        <source>Apply as it was saved</source>
        <translation>Anwenden, wie gespeichert</translation>
    </message>
    <message>
        <source>Where presets are applied</source>
        <translation>Wo Presets angewendet werden</translation>
    </message>
    <message>
        <source>A preset goes to the preview, or restores preview, programme and screens as they were saved.</source>
        <translation>Ein Preset geht in die Vorschau, oder es stellt Vorschau, Programm und Screens so wieder her, wie sie gespeichert wurden.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Löschen…</translation>
    </message>
    <message>
        <source>Renames the selected preset (F2).</source>
        <translation>Benennt das ausgewählte Preset um (F2).</translation>
    </message>
    <message>
        <source>Deletes the selected preset from the device.</source>
        <translation>Löscht das ausgewählte Preset vom Gerät.</translation>
    </message>
    <message>
        <source>Preset %1</source>
        <translation>Preset %1</translation>
    </message>
    <message>
        <source>The device has no room for another preset.</source>
        <translation>Das Gerät hat keinen Platz für ein weiteres Preset.</translation>
    </message>
    <message>
        <source>The preset &quot;%1&quot; was applied.</source>
        <translation>Das Preset „%1“ wurde angewendet.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SavePresetDialog</name>
    <message>
        <source>The selected screens: %1</source>
        <translation>Die ausgewählten Screens: %1</translation>
    </message>
    <message>
        <source>All screens of the device</source>
        <translation>Alle Screens des Geräts</translation>
    </message>
    <message>
        <source>Save preset</source>
        <translation>Preset speichern</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ScreenButton</name>
    <message>
        <source>Not connected</source>
        <translation>Getrennt</translation>
    </message>
    <message>
        <source>Black, frozen</source>
        <translation>Schwarz, eingefroren</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Eingefroren</translation>
    </message>
    <message>
        <source>On air</source>
        <translation>Auf Sendung</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>Screen %1</translation>
    </message>
    <message>
        <source>Selects the screen for take, cut, T-bar, freeze and fade to black. Its state: %1.</source>
        <translation>Wählt den Screen für Take, Schnitt, T-Bar, Einfrieren und Schwarzblende. Sein Zustand: %1.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ScreenItem</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1, %2, %3</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Eingefroren</translation>
    </message>
    <message>
        <source>Faded to black</source>
        <translation>Auf Schwarz</translation>
    </message>
    <message>
        <source>Test pattern</source>
        <translation>Testbild</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>PGM</source>
        <translation>PGM</translation>
    </message>
    <message>
        <source>PVW</source>
        <translation>PVW</translation>
    </message>
    <message>
        <source>✓ %1</source>
        <translation>✓ %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SelectionFrame</name>
    <message>
        <source>%1, %2  ·  %3</source>
        <translation>%1, %2  ·  %3</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SessionsModel</name>
    <message>
        <source>%1 (%2): %3</source>
        <translation>%1 (%2): %3</translation>
    </message>
    <message>
        <source>Controlled by another client</source>
        <translation>Von einem anderen Client gesteuert</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Getrennt</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Verbindet</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Liest</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>Verbindung verloren</translation>
    </message>
    <message>
        <source>Reading, %1 %</source>
        <translation>Liest, %1 %</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1; next attempt at %2</source>
        <translation>%1; nächster Versuch um %2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ShortcutsDialog</name>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Effect</source>
        <translation>Wirkung</translation>
    </message>
    <message>
        <source>The keys, the action and what it does</source>
        <translation>Die Tasten, die Aktion und was sie tut</translation>
    </message>
    <message>
        <source>Closes the list</source>
        <translation>Schließt die Liste</translation>
    </message>
    <message>
        <source>Selects or deselects a screen for the live controls.</source>
        <translation>Wählt einen Screen für die Live-Bedienung aus oder ab.</translation>
    </message>
    <message>
        <source>Moves to the next control. The space bar then operates a button that has the focus.</source>
        <translation>Geht zum nächsten Bedienelement. Die Leertaste betätigt dann eine Schaltfläche, die den Fokus hat.</translation>
    </message>
    <message>
        <source>Moves the T-bar while it has the focus.</source>
        <translation>Bewegt die T-Bar, solange sie den Fokus hat.</translation>
    </message>
    <message>
        <source>On the canvas: selects the next layer of the selected screens.</source>
        <translation>Auf der Arbeitsfläche: wählt den nächsten Layer der ausgewählten Screens.</translation>
    </message>
    <message>
        <source>On the canvas: moves the selected layer by 1 pixel, with Shift by 10. Without one: selects scene and screen.</source>
        <translation>Auf der Arbeitsfläche: bewegt den ausgewählten Layer um 1 Pixel, mit Umschalt um 10. Ohne Layer: wählt Szene und Screen.</translation>
    </message>
    <message>
        <source>On the canvas: moves the right and lower edges of the selected layer.</source>
        <translation>Auf der Arbeitsfläche: bewegt die rechte und untere Kante des ausgewählten Layers.</translation>
    </message>
    <message>
        <source>Opens the menu of the selected layer or preset.</source>
        <translation>Öffnet das Menü des ausgewählten Layers oder Presets.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SourceEditor</name>
    <message>
        <source>Another source</source>
        <translation>Eine andere Quelle</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SourcesModel</name>
    <message>
        <source>Not connected</source>
        <translation>Getrennt</translation>
    </message>
    <message>
        <source>The card does not work</source>
        <translation>Die Karte arbeitet nicht</translation>
    </message>
    <message>
        <source>%1, %2 bit</source>
        <extracomment>Format of an input, bits of its colours</extracomment>
        <translation>%1, %2 Bit</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SourcesView</name>
    <message>
        <source>Inputs</source>
        <translation>Eingänge</translation>
    </message>
    <message>
        <source>Show in the selected layer</source>
        <translation>Im ausgewählten Layer zeigen</translation>
    </message>
    <message>
        <source>Makes this input the source of the selected layer.</source>
        <translation>Macht diesen Eingang zur Quelle des ausgewählten Layers.</translation>
    </message>
    <message>
        <source>The inputs of the device with their signals. An input can be dragged onto a layer of the canvas.</source>
        <translation>Die Eingänge des Geräts mit ihren Signalen. Ein Eingang kann auf einen Layer der Arbeitsfläche gezogen werden.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::StatusLine</name>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>State of the live controls</source>
        <translation>Zustand der Live-Bedienung</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Not possible</source>
        <translation>Nicht möglich</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>Outcome unknown</source>
        <translation>Ergebnis unbekannt</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Erledigt</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::TBar</name>
    <message>
        <source>T-bar</source>
        <translation>T-Bar</translation>
    </message>
    <message>
        <source>Takes by hand: moves from preview to programme, in percent. At 100 percent the device takes.</source>
        <translation>Take von Hand: geht von der Vorschau zum Programm, in Prozent. Bei 100 Prozent führt das Gerät den Take aus.</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::TransferRow</name>
    <message>
        <source>✓ Done</source>
        <translation>✓ Fertig</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancel: %1</source>
        <translation>Abbrechen: %1</translation>
    </message>
    <message>
        <source>Ends the transfer. The device keeps what it had.</source>
        <translation>Beendet die Übertragung. Das Gerät behält, was es hatte.</translation>
    </message>
    <message>
        <source>%1 %, %2/s</source>
        <extracomment>Share of a transfer in percent, bytes per second with their unit</extracomment>
        <translation>%1 %, %2/s</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close: %1</source>
        <translation>Schließen: %1</translation>
    </message>
    <message>
        <source>Removes this line.</source>
        <translation>Entfernt diese Zeile.</translation>
    </message>
</context>
<context>
    <name>UndoSteps</name>
    <message>
        <source>rename device</source>
        <translation>Gerät umbenennen</translation>
    </message>
    <message>
        <source>change genlock</source>
        <translation>Genlock ändern</translation>
    </message>
    <message>
        <source>change swap at a take</source>
        <translation>Tausch beim Take ändern</translation>
    </message>
    <message>
        <source>change ZeLK</source>
        <translation>ZeLK ändern</translation>
    </message>
    <message>
        <source>change groups</source>
        <translation>Gruppen ändern</translation>
    </message>
    <message>
        <source>change backup inputs</source>
        <translation>Ersatzeingänge ändern</translation>
    </message>
    <message>
        <source>change output mapping</source>
        <translation>Zuordnung der Ausgänge ändern</translation>
    </message>
    <message>
        <source>change dynamic range</source>
        <translation>Dynamikumfang ändern</translation>
    </message>
    <message>
        <source>change where presets go</source>
        <translation>Ziel der Presets ändern</translation>
    </message>
    <message>
        <source>rename interface</source>
        <translation>Schnittstelle umbenennen</translation>
    </message>
    <message>
        <source>change test pattern</source>
        <translation>Testbild ändern</translation>
    </message>
    <message>
        <source>change format</source>
        <translation>Format ändern</translation>
    </message>
    <message>
        <source>change image quality</source>
        <translation>Bildqualität ändern</translation>
    </message>
    <message>
        <source>crop input</source>
        <translation>Eingang beschneiden</translation>
    </message>
    <message>
        <source>change cutout</source>
        <translation>Freistellung ändern</translation>
    </message>
    <message>
        <source>change copy protection</source>
        <translation>Kopierschutz ändern</translation>
    </message>
    <message>
        <source>change colour depth</source>
        <translation>Farbtiefe ändern</translation>
    </message>
    <message>
        <source>change colour space</source>
        <translation>Farbraum ändern</translation>
    </message>
    <message>
        <source>change colour range</source>
        <translation>Farbbereich ändern</translation>
    </message>
    <message>
        <source>change format mapping</source>
        <translation>Formatzuordnung ändern</translation>
    </message>
    <message>
        <source>change screen</source>
        <translation>Screen ändern</translation>
    </message>
    <message>
        <source>rename screen</source>
        <translation>Screen umbenennen</translation>
    </message>
    <message>
        <source>change background</source>
        <translation>Hintergrund ändern</translation>
    </message>
    <message>
        <source>move screen</source>
        <translation>Screen verschieben</translation>
    </message>
    <message>
        <source>change physical size</source>
        <translation>Physische Größe ändern</translation>
    </message>
    <message>
        <source>change where edits go</source>
        <translation>Ziel der Änderungen ändern</translation>
    </message>
    <message>
        <source>select screen</source>
        <translation>Screen auswählen</translation>
    </message>
    <message>
        <source>freeze</source>
        <translation>Einfrieren</translation>
    </message>
    <message>
        <source>fade to black</source>
        <translation>Schwarzblende</translation>
    </message>
    <message>
        <source>change transition</source>
        <translation>Übergang ändern</translation>
    </message>
    <message>
        <source>create layer</source>
        <translation>Layer anlegen</translation>
    </message>
    <message>
        <source>change stacking order</source>
        <translation>Stapelfolge ändern</translation>
    </message>
    <message>
        <source>change layer</source>
        <translation>Layer ändern</translation>
    </message>
    <message>
        <source>change source</source>
        <translation>Quelle ändern</translation>
    </message>
    <message>
        <source>move layer</source>
        <translation>Layer verschieben</translation>
    </message>
    <message>
        <source>change mask</source>
        <translation>Maske ändern</translation>
    </message>
    <message>
        <source>change test colour</source>
        <translation>Testfarbe ändern</translation>
    </message>
    <message>
        <source>change opacity</source>
        <translation>Deckkraft ändern</translation>
    </message>
    <message>
        <source>change shadow</source>
        <translation>Schatten ändern</translation>
    </message>
    <message>
        <source>change border</source>
        <translation>Rahmen ändern</translation>
    </message>
    <message>
        <source>select layer</source>
        <translation>Layer auswählen</translation>
    </message>
    <message>
        <source>change under-monitor display</source>
        <translation>Beschriftung (UMD) ändern</translation>
    </message>
    <message>
        <source>change cut and fill</source>
        <translation>Cut und Fill ändern</translation>
    </message>
    <message>
        <source>remove layer</source>
        <translation>Layer entfernen</translation>
    </message>
    <message>
        <source>rename file</source>
        <translation>Datei umbenennen</translation>
    </message>
    <message>
        <source>%1 on %2</source>
        <extracomment>What the operator did, the name of the device</extracomment>
        <translation>%1 auf %2</translation>
    </message>
    <message>
        <source>%1 on %2, not connected</source>
        <translation>%1 auf %2, nicht verbunden</translation>
    </message>
</context>
</TS>
