<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AttributesView</name>
    <message>
        <source>Search attributes</source>
        <translation>Attribute suchen</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>VR</source>
        <translation>VR</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>DICOM attributes</source>
        <translation>DICOM-Attribute</translation>
    </message>
    <message>
        <source>Select a series to see the attributes of its first image.</source>
        <translation>Wählen Sie eine Serie, um die Attribute ihres ersten Bildes zu sehen.</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Wird gelesen…</translation>
    </message>
    <message>
        <source>There is more: search for more words.</source>
        <translation>Es gibt mehr: Suchen Sie nach weiteren Wörtern.</translation>
    </message>
    <message>
        <source>No attribute holds “%1”.</source>
        <translation>Kein Attribut enthält „%1“.</translation>
    </message>
    <message>
        <source>&amp;Copy all</source>
        <translation>Alles &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
</context>
<context>
    <name>Contents</name>
    <message>
        <source>Studies</source>
        <translation>Studien</translation>
    </message>
    <message>
        <source>Viewers</source>
        <translation>Ansichten</translation>
    </message>
</context>
<context>
    <name>Desktop</name>
    <message>
        <source>%1 – Movara</source>
        <translation>%1 – Movara</translation>
    </message>
    <message>
        <source>Window of the studies</source>
        <translation>Fenster der Studien</translation>
    </message>
    <message>
        <source>Upper part</source>
        <translation>Oberer Teil</translation>
    </message>
    <message>
        <source>Lower part</source>
        <translation>Unterer Teil</translation>
    </message>
</context>
<context>
    <name>DisplayList</name>
    <message>
        <source>Small</source>
        <translation>Klein</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Groß</translation>
    </message>
    <message>
        <source>%1, %2, primary</source>
        <translation>%1, %2, Hauptbildschirm</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1 at %2, %3</source>
        <translation>%1 bei %2, %3</translation>
    </message>
    <message>
        <source>These monitors are named by the environment variable MOVARA_MONITORS; they are not split.</source>
        <translation>Diese Monitore nennt die Umgebungsvariable MOVARA_MONITORS; sie werden nicht geteilt.</translation>
    </message>
    <message>
        <source>Split into two monitors</source>
        <translation>In zwei Monitore teilen</translation>
    </message>
    <message>
        <source>Split %1 into two monitors</source>
        <translation>%1 in zwei Monitore teilen</translation>
    </message>
    <message>
        <source>%1 (%2 megapixels)</source>
        <translation>%1 (%2 Megapixel)</translation>
    </message>
    <message>
        <source>2 × %1</source>
        <translation>2 × %1</translation>
    </message>
</context>
<context>
    <name>EditTools</name>
    <message>
        <source>The tool bars are described in this file. It is read when the workstation starts.

%1</source>
        <translation>Diese Datei beschreibt die Werkzeugleisten. Sie wird beim Start der Workstation gelesen.

%1</translation>
    </message>
</context>
<context>
    <name>EntryTexts</name>
    <message>
        <source>(no name)</source>
        <translation>(ohne Namen)</translation>
    </message>
    <message>
        <source>(series without a name)</source>
        <translation>(Serie ohne Namen)</translation>
    </message>
    <message>
        <source>%1 × %2, %3 slices</source>
        <translation>%1 × %2, %3 Schichten</translation>
    </message>
    <message>
        <source>(study without date)</source>
        <translation>(Studie ohne Datum)</translation>
    </message>
    <message>
        <source>%1 images</source>
        <translation>%1 Bilder</translation>
    </message>
    <message>
        <source>%1 phases: %2</source>
        <translation>%1 Phasen: %2</translation>
    </message>
</context>
<context>
    <name>Enumeration.HxMovaraImportTab.LoadIncompleteStudies</name>
    <message>
        <source>Load If Confirmed, Partnering on OEM Calls</source>
        <translation>Nach Bestätigung laden, Partner bei OEM-Aufrufen</translation>
    </message>
    <message>
        <source>Load If Confirmed</source>
        <translation>Nach Bestätigung laden</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
</context>
<context>
    <name>ExApplication</name>
    <message>
        <source>Help...</source>
        <translation>Hilfe …</translation>
    </message>
</context>
<context>
    <name>ExContextToolBar</name>
    <message>
        <source>Context toolbar</source>
        <translation>Kontextleiste</translation>
    </message>
</context>
<context>
    <name>ExEditorContainer</name>
    <message>
        <source>Panels</source>
        <translation>Bedienfelder</translation>
    </message>
    <message>
        <source>Float, move or close the panel</source>
        <translation>Bedienfeld abdocken, verschieben oder schließen</translation>
    </message>
    <message>
        <source>Panel options</source>
        <translation>Optionen des Bedienfelds</translation>
    </message>
    <message>
        <source>Drop panels here</source>
        <translation>Bedienfelder hier ablegen</translation>
    </message>
</context>
<context>
    <name>ExEditorFloater</name>
    <message>
        <source>Drag to an editor area to dock the panel there</source>
        <translation>In eine Fläche ziehen, um das Bedienfeld dort anzudocken</translation>
    </message>
    <message>
        <source>Drag here to dock</source>
        <translation>Zum Andocken hier ziehen</translation>
    </message>
    <message>
        <source>Dock</source>
        <translation>Andocken</translation>
    </message>
    <message>
        <source>Put the panel back where it was</source>
        <translation>Das Bedienfeld an seinen Platz zurücklegen</translation>
    </message>
</context>
<context>
    <name>ExEditorRegion</name>
    <message>
        <source>&amp;Float</source>
        <translation>&amp;Abdocken</translation>
    </message>
    <message>
        <source>&amp;Move to</source>
        <translation>&amp;Verschieben nach</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation>&amp;Zeigen</translation>
    </message>
    <message>
        <source>Area %1</source>
        <translation>Fläche %1</translation>
    </message>
</context>
<context>
    <name>ExHotKeys</name>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
</context>
<context>
    <name>ExMainWindow</name>
    <message>
        <source>Show All</source>
        <translation>Alle zeigen</translation>
    </message>
    <message>
        <source>Synchronize with other monitors</source>
        <translation>Mit anderen Monitoren abgleichen</translation>
    </message>
</context>
<context>
    <name>ExMenuBarAddOn</name>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Puts the window in the task bar.</source>
        <translation>Legt das Fenster in die Taskleiste.</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Gives the window its frame.</source>
        <translation>Gibt dem Fenster seinen Rahmen.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Ends the session.</source>
        <translation>Beendet die Sitzung.</translation>
    </message>
</context>
<context>
    <name>ExMessageBox</name>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>ExToolBar</name>
    <message>
        <source>Properties...</source>
        <translation>Eigenschaften …</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>All tools</source>
        <translation>Alle Werkzeuge</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>Shows the page that was read before</source>
        <translation>Zeigt die zuvor gelesene Seite</translation>
    </message>
</context>
<context>
    <name>HxMessage</name>
    <message>
        <source>%1 already exists.</source>
        <translation>%1 ist schon vorhanden.</translation>
    </message>
</context>
<context>
    <name>ImportTab</name>
    <message>
        <source>Loading prohibited!
</source>
        <translation>Laden nicht erlaubt!
</translation>
    </message>
    <message>
        <source>The studies you are trying to load may be incomplete.
Do you want to load them anyway?</source>
        <translation>Die Studien, die geladen werden sollen, sind möglicherweise unvollständig.
Sollen sie trotzdem geladen werden?</translation>
    </message>
    <message>
        <source>The studies you are trying to load may be incomplete.
You cannot load them.</source>
        <translation>Die Studien, die geladen werden sollen, sind möglicherweise unvollständig.
Sie können nicht geladen werden.</translation>
    </message>
    <message>
        <source>There were problems accessing the volume storage.
Contact your system administrator.</source>
        <translation>Auf den Volumenspeicher konnte nicht zugegriffen werden.
Wenden Sie sich an Ihren Systemverwalter.</translation>
    </message>
    <message>
        <source>No appropriate studies or series selected. No data will be loaded.</source>
        <translation>Keine geeigneten Studien oder Serien ausgewählt. Es werden keine Daten geladen.</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>k. A.</translation>
    </message>
    <message>
        <source>(Name: %1, Date of Birth: %2, ID: %3)</source>
        <translation>(Name: %1, Geburtsdatum: %2, ID: %3)</translation>
    </message>
    <message>
        <source>(Name: %1, Date of Birth: %2)</source>
        <translation>(Name: %1, Geburtsdatum: %2)</translation>
    </message>
    <message>
        <source>The studies you are trying to load seem to come from multiple patients.

</source>
        <translation>Die Studien, die geladen werden sollen, stammen anscheinend von mehreren Patienten.

</translation>
    </message>
    <message>
        <source>Additional %1 patients are not shown in this list.</source>
        <translation>%1 weitere Patienten sind in dieser Liste nicht aufgeführt.</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Ignorieren</translation>
    </message>
    <message>
        <source>The studies/series you are trying to load do not belong to the locked patient:

</source>
        <comment>The locked patient is the patient that was selected and locked from the webclient. It is not possible to load any other patient as long as this patient is locked.</comment>
        <translation>Die Studien/Serien, die geladen werden sollen, gehören nicht zum gesperrten Patienten:

</translation>
    </message>
</context>
<context>
    <name>LinkType</name>
    <message>
        <source>Scrolling</source>
        <translation>Blättern</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Vergrößerung</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Window level</source>
        <translation>Fensterung</translation>
    </message>
    <message>
        <source>Time phase</source>
        <translation>Zeitphase</translation>
    </message>
    <message>
        <source>3D rotation</source>
        <translation>3D-Drehung</translation>
    </message>
</context>
<context>
    <name>LinksPanel</name>
    <message>
        <source>3D</source>
        <translation>3D</translation>
    </message>
    <message>
        <source>top left</source>
        <translation>oben links</translation>
    </message>
    <message>
        <source>top</source>
        <translation>oben</translation>
    </message>
    <message>
        <source>top right</source>
        <translation>oben rechts</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>middle</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>bottom left</source>
        <translation>unten links</translation>
    </message>
    <message>
        <source>bottom</source>
        <translation>unten</translation>
    </message>
    <message>
        <source>bottom right</source>
        <translation>unten rechts</translation>
    </message>
    <message>
        <source>Active viewer</source>
        <translation>Aktive Ansicht</translation>
    </message>
    <message>
        <source>Group %1</source>
        <translation>Gruppe %1</translation>
    </message>
    <message>
        <source>%1 of %2 is not linked.</source>
        <translation>%1 von %2 ist nicht verknüpft.</translation>
    </message>
    <message>
        <source>Attached: follows the linked viewers.</source>
        <translation>Angeschlossen: folgt den verknüpften Ansichten.</translation>
    </message>
    <message>
        <source>Detached: stays as it is.</source>
        <translation>Gelöst: bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>Follows some viewers only.</source>
        <translation>Folgt nur manchen Ansichten.</translation>
    </message>
    <message>
        <source>Double-click or Space attaches and detaches; the context menu has more.</source>
        <translation>Doppelklick oder Leertaste schließt an und löst; das Kontextmenü hat mehr.</translation>
    </message>
    <message>
        <source>Attach or detach the selected viewers (Space)</source>
        <translation>Die gewählten Ansichten anschließen oder lösen (Leertaste)</translation>
    </message>
    <message>
        <source>Put the selected viewers into one group</source>
        <translation>Die gewählten Ansichten in eine Gruppe setzen</translation>
    </message>
    <message>
        <source>Give each of the selected viewers a group of its own</source>
        <translation>Jeder gewählten Ansicht eine eigene Gruppe geben</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>Verknüpfungen</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Verknüpfung</translation>
    </message>
    <message>
        <source>Switches this way of linking on or off for all viewers</source>
        <translation>Schaltet diese Verknüpfung für alle Ansichten ein oder aus</translation>
    </message>
    <message>
        <source>There are no viewers. Choose a layout to have some.</source>
        <translation>Es gibt keine Ansichten. Wählen Sie eine Aufteilung.</translation>
    </message>
    <message>
        <source>No series</source>
        <translation>Keine Serie</translation>
    </message>
    <message>
        <source>A click makes it the active viewer.</source>
        <translation>Ein Klick macht sie zur aktiven Ansicht.</translation>
    </message>
    <message>
        <source>There is no such link of this kind of viewer.</source>
        <translation>Diese Verknüpfung gibt es bei Ansichten dieser Art nicht.</translation>
    </message>
    <message>
        <source>not linked</source>
        <translation>nicht verknüpft</translation>
    </message>
    <message>
        <source>&amp;Attached</source>
        <translation>&amp;Angeschlossen</translation>
    </message>
    <message>
        <source>&amp;New group of these</source>
        <translation>&amp;Neue Gruppe aus diesen</translation>
    </message>
    <message>
        <source>&amp;New group</source>
        <translation>&amp;Neue Gruppe</translation>
    </message>
    <message>
        <source>Not &amp;linked</source>
        <translation>Nicht &amp;verknüpft</translation>
    </message>
    <message>
        <source>&amp;Follow the active viewer</source>
        <translation>Der aktiven Ansicht &amp;folgen</translation>
    </message>
    <message>
        <source>&amp;Restrict to</source>
        <translation>&amp;Beschränken auf</translation>
    </message>
</context>
<context>
    <name>LinksPart</name>
    <message>
        <source>Links</source>
        <translation>Verknüpfungen</translation>
    </message>
</context>
<context>
    <name>LogModel</name>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Stufe</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>LogPanel</name>
    <message>
        <source>Search log</source>
        <translation>Protokoll durchsuchen</translation>
    </message>
    <message>
        <source>Copy the selected lines, or all shown (Ctrl+C)</source>
        <translation>Die gewählten Zeilen, oder alle gezeigten, kopieren (Strg+C)</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Which lines are shown</source>
        <translation>Welche Zeilen gezeigt werden</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Show the file in its folder</source>
        <translation>Die Datei in ihrem Ordner zeigen</translation>
    </message>
    <message>
        <source>Nothing has been logged yet.</source>
        <translation>Es ist noch nichts protokolliert.</translation>
    </message>
    <message>
        <source>No line passes. Press Escape in the search field, or choose All, to see everything.</source>
        <translation>Keine Zeile passt. Escape im Suchfeld oder die Wahl „Alle“ zeigt wieder alles.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Copy all</source>
        <translation>Alles &amp;kopieren</translation>
    </message>
</context>
<context>
    <name>MainMenus</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
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
        <source>&amp;Link</source>
        <translation>&amp;Verknüpfung</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
</context>
<context>
    <name>MeasureTools</name>
    <message>
        <source>Click the two ends,
or drag across</source>
        <translation>Beide Enden
anklicken oder
hinüberziehen</translation>
    </message>
    <message>
        <source>Click one leg,
the apex and
the other leg</source>
        <translation>Schenkel, Scheitel,
anderen Schenkel
anklicken</translation>
    </message>
    <message>
        <source>Click the corners, double-click the last,
or draw around</source>
        <translation>Ecken anklicken, die letzte doppelt,
oder umfahren</translation>
    </message>
    <message>
        <source>Drag from corner to corner,
or click both corners</source>
        <translation>Von Ecke zu Ecke ziehen
oder beide anklicken</translation>
    </message>
</context>
<context>
    <name>MeasurementTexts</name>
    <message>
        <source>the line crosses itself</source>
        <translation>die Linie kreuzt sich</translation>
    </message>
    <message>
        <source>Area %1</source>
        <translation>Fläche %1</translation>
    </message>
    <message>
        <source>px²</source>
        <translation>px²</translation>
    </message>
    <message>
        <source>mm²</source>
        <translation>mm²</translation>
    </message>
    <message>
        <source>Mean %1 ± %2</source>
        <translation>Mittel %1 ± %2</translation>
    </message>
    <message>
        <source>Min %1  Max %2</source>
        <translation>Min %1  Max %2</translation>
    </message>
    <message>
        <source>%1 voxels</source>
        <translation>%1 Voxel</translation>
    </message>
    <message>
        <source>%1 samples</source>
        <translation>%1 Abtastwerte</translation>
    </message>
    <message>
        <source>Distance</source>
        <translation>Strecke</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>Polygon</translation>
    </message>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
    </message>
</context>
<context>
    <name>MeasurementsPanel</name>
    <message>
        <source>Copy the selected measurements, or all, as text (Ctrl+C)</source>
        <translation>Die gewählten Messungen, oder alle, als Text kopieren (Strg+C)</translation>
    </message>
    <message>
        <source>Delete the selected measurements (Del)</source>
        <translation>Die gewählten Messungen löschen (Entf)</translation>
    </message>
    <message>
        <source>Delete all measurements</source>
        <translation>Alle Messungen löschen</translation>
    </message>
    <message>
        <source>Bring back deleted or moved measurements (Ctrl+Z)</source>
        <translation>Gelöschte oder verschobene Messungen zurückholen (Strg+Z)</translation>
    </message>
    <message>
        <source>Measurements</source>
        <translation>Messungen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Slice</source>
        <translation>Schicht</translation>
    </message>
    <message>
        <source>Series</source>
        <translation>Serie</translation>
    </message>
    <message>
        <source>Nothing has been measured.

Choose Distance, Angle or Region in the tool bar, then click or drag in an image.</source>
        <translation>Es ist nichts gemessen.

Wählen Sie Strecke, Winkel oder Bereich in der Werkzeugleiste und klicken oder ziehen Sie dann in einem Bild.</translation>
    </message>
    <message>
        <source>no longer open</source>
        <translation>nicht mehr geöffnet</translation>
    </message>
    <message>
        <source>Double-click to go to it</source>
        <translation>Doppelklick geht zur Messung</translation>
    </message>
    <message>
        <source>&amp;Go to it</source>
        <translation>&amp;Dorthin gehen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
</context>
<context>
    <name>MeasurementsPart</name>
    <message>
        <source>Measurements</source>
        <translation>Messungen</translation>
    </message>
</context>
<context>
    <name>MonitorMap</name>
    <message>
        <source>Viewers</source>
        <translation>Ansichten</translation>
    </message>
    <message>
        <source>Show viewers on monitor %1</source>
        <translation>Ansichten auf Monitor %1 zeigen</translation>
    </message>
    <message>
        <source>Studies</source>
        <translation>Studien</translation>
    </message>
    <message>
        <source>Show the list of studies on monitor %1</source>
        <translation>Die Studienliste auf Monitor %1 zeigen</translation>
    </message>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>main monitor</source>
        <translation>Hauptmonitor</translation>
    </message>
</context>
<context>
    <name>MonitorSettingsPage</name>
    <message>
        <source>Application font</source>
        <translation>Schrift des Programms</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Thumbnails</source>
        <translation>Vorschaubilder</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Font on thumbnails</source>
        <translation>Schrift auf Vorschaubildern</translation>
    </message>
    <message>
        <source>&amp;Save for this site</source>
        <translation>Für den Standort &amp;sichern</translation>
    </message>
    <message>
        <source>Monitor settings</source>
        <translation>Monitor-Einstellungen</translation>
    </message>
    <message>
        <source>Classes and sizes hold until the program ends. Saved for this site, they hold for everyone from the next start on.</source>
        <translation>Klassen und Größen gelten, bis das Programm endet. Für den Standort gesichert, gelten sie ab dem nächsten Start für alle.</translation>
    </message>
    <message>
        <source>Classes and sizes hold until the program ends. They cannot be saved for this site: %1</source>
        <translation>Klassen und Größen gelten, bis das Programm endet. Für den Standort können sie nicht gesichert werden: %1</translation>
    </message>
    <message>
        <source>How displays are split could not be kept; it holds until the program ends.</source>
        <translation>Die Teilung der Bildschirme konnte nicht behalten werden; sie gilt, bis das Programm endet.</translation>
    </message>
    <message>
        <source>Displays</source>
        <translation>Bildschirme</translation>
    </message>
    <message>
        <source>A wide display can be used as two monitors side by side. This is kept for you.</source>
        <translation>Ein breiter Bildschirm kann als zwei Monitore nebeneinander dienen. Das wird für Sie behalten.</translation>
    </message>
    <message>
        <source>Classes of monitors</source>
        <translation>Klassen von Monitoren</translation>
    </message>
    <message>
        <source>Medium, from</source>
        <translation>Mittel, ab</translation>
    </message>
    <message>
        <source>Large, from</source>
        <translation>Groß, ab</translation>
    </message>
    <message>
        <source>Sizes of fonts and thumbnails</source>
        <translation>Größen von Schriften und Vorschaubildern</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Writes classes and sizes into %1</source>
        <translation>Schreibt Klassen und Größen nach %1</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>Puts classes and sizes back to what they are without any settings</source>
        <translation>Setzt Klassen und Größen auf das zurück, was ohne Einstellungen gilt</translation>
    </message>
    <message>
        <source> megapixels</source>
        <translation> Megapixel</translation>
    </message>
    <message>
        <source>Medium monitors would begin at %1 megapixels, after large ones at %2. Give the larger number to the large ones.</source>
        <translation>Mittlere Monitore würden bei %1 Megapixeln beginnen, nach großen bei %2. Geben Sie den großen die größere Zahl.</translation>
    </message>
    <message>
        <source>Until then no monitor counts as medium.</source>
        <translation>Bis dahin zählt kein Monitor als mittel.</translation>
    </message>
    <message>
        <source>Until then the numbers from before hold.</source>
        <translation>Bis dahin gelten die Zahlen von vorher.</translation>
    </message>
    <message>
        <source>“%1” is set to %2, which cannot be used. Choose a number from %3 to %4.</source>
        <translation>„%1“ steht auf %2, was nicht brauchbar ist. Wählen Sie eine Zahl von %3 bis %4.</translation>
    </message>
    <message>
        <source>Saved in %1. It holds for everyone from the next start on.</source>
        <translation>In %1 gesichert. Es gilt ab dem nächsten Start für alle.</translation>
    </message>
</context>
<context>
    <name>PanelsPart</name>
    <message>
        <source>Panels</source>
        <translation>Bedienfelder</translation>
    </message>
</context>
<context>
    <name>PictureTools</name>
    <message>
        <source>Save a picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg)</source>
        <translation>Bilder (*.png *.jpg)</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message>
        <source>The picture cannot be written to %1: %2</source>
        <translation>Das Bild kann nicht nach %1 geschrieben werden: %2</translation>
    </message>
    <message>
        <source>unknown kind of picture</source>
        <translation>unbekannte Art von Bild</translation>
    </message>
</context>
<context>
    <name>PlacementDialog</name>
    <message>
        <source>Monitors</source>
        <translation>Monitore</translation>
    </message>
    <message>
        <source>What each monitor shows:</source>
        <translation>Was jeder Monitor zeigt:</translation>
    </message>
    <message>
        <source>There is only one monitor, which shows everything. With a further one, viewers and studies can be spread.</source>
        <translation>Es gibt nur einen Monitor; er zeigt alles. Mit einem weiteren lassen sich Ansichten und Studien verteilen.</translation>
    </message>
    <message>
        <source>The viewers fill their monitors.</source>
        <translation>Die Ansichten füllen ihre Monitore.</translation>
    </message>
    <message>
        <source>The viewers are on monitor %1.</source>
        <translation>Die Ansichten sind auf Monitor %1.</translation>
    </message>
    <message>
        <source>The list of studies stands beside them.</source>
        <translation>Die Studienliste steht daneben.</translation>
    </message>
    <message>
        <source>The list of studies has a window of its own on monitor %1.</source>
        <translation>Die Studienliste hat ein eigenes Fenster auf Monitor %1.</translation>
    </message>
    <message>
        <source>Choose a monitor for the viewers.</source>
        <translation>Wählen Sie einen Monitor für die Ansichten.</translation>
    </message>
    <message>
        <source>Choose a monitor for the list of studies.</source>
        <translation>Wählen Sie einen Monitor für die Studienliste.</translation>
    </message>
    <message>
        <source>Monitors with viewers must stand side by side. Check the one between them too.</source>
        <translation>Monitore mit Ansichten müssen nebeneinander stehen. Wählen Sie auch den dazwischen.</translation>
    </message>
</context>
<context>
    <name>Plane</name>
    <message>
        <source>Axial</source>
        <translation>Axial</translation>
    </message>
    <message>
        <source>Sagittal</source>
        <translation>Sagittal</translation>
    </message>
    <message>
        <source>Coronal</source>
        <translation>Koronal</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
    <message>
        <source>Oblique</source>
        <translation>Schräg</translation>
    </message>
</context>
<context>
    <name>PluginLoader</name>
    <message>
        <source>It was made for version %1 of Movara, and this is version %2. Install the plug-in that belongs to version %2.</source>
        <translation>Es wurde für Version %1 von Movara gemacht, und dies ist Version %2. Installieren Sie das Zusatzmodul, das zu Version %2 gehört.</translation>
    </message>
    <message>
        <source>It cannot be loaded: %1</source>
        <translation>Es kann nicht geladen werden: %1</translation>
    </message>
</context>
<context>
    <name>Plugins</name>
    <message>
        <source>Some plug-ins were not loaded:</source>
        <translation>Einige Zusatzmodule wurden nicht geladen:</translation>
    </message>
</context>
<context>
    <name>ProblemsButton</name>
    <message>
        <source>Files that could not be used: %1…</source>
        <translation>Nicht verwendbare Dateien: %1 …</translation>
    </message>
    <message>
        <source>Files that could not be used</source>
        <translation>Nicht verwendbare Dateien</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>Shows what is missing or could not be used, and why</source>
        <translation>Zeigt, was fehlt oder nicht verwendet werden konnte, und warum</translation>
    </message>
    <message>
        <source>Opening was cancelled: the list is incomplete.</source>
        <translation>Das Öffnen wurde abgebrochen: Die Liste ist unvollständig.</translation>
    </message>
    <message>
        <source>The list is incomplete…</source>
        <translation>Die Liste ist unvollständig …</translation>
    </message>
    <message>
        <source>Problems while opening</source>
        <translation>Probleme beim Öffnen</translation>
    </message>
</context>
<context>
    <name>ProgressLine</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Ends looking for files and reading; what is there stays</source>
        <translation>Beendet Suchen und Lesen; was da ist, bleibt</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>PropertiesPanel</name>
    <message>
        <source>Search settings</source>
        <translation>Einstellungen suchen</translation>
    </message>
    <message>
        <source>&amp;Reset all</source>
        <translation>Alle &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Puts all settings shown here back to their defaults</source>
        <translation>Setzt alle hier gezeigten Einstellungen auf ihre Standards zurück</translation>
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
        <source>Back to the default</source>
        <translation>Zurück zum Standard</translation>
    </message>
    <message>
        <source>%1: back to the default</source>
        <translation>%1: zurück zum Standard</translation>
    </message>
    <message>
        <source>“%1” is no value for %2.</source>
        <translation>„%1“ ist kein Wert für %2.</translation>
    </message>
    <message>
        <source>There are no settings here.</source>
        <translation>Hier sind keine Einstellungen.</translation>
    </message>
    <message>
        <source>No setting has “%1” in its name.</source>
        <translation>Keine Einstellung hat „%1“ im Namen.</translation>
    </message>
</context>
<context>
    <name>Property</name>
    <message>
        <source>User interface</source>
        <translation>Benutzeroberfläche</translation>
    </message>
    <message>
        <source>Color Scheme</source>
        <translation>Farbschema</translation>
    </message>
    <message>
        <source>Language (from the next start on)</source>
        <translation>Sprache (ab dem nächsten Start)</translation>
    </message>
    <message>
        <source>Sizes on monitors</source>
        <translation>Größen auf Monitoren</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Cine</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Phases per second</source>
        <translation>Phasen pro Sekunde</translation>
    </message>
    <message>
        <source>Application Font Size (Small Resolution)</source>
        <translation>Schriftgröße (kleine Auflösung)</translation>
    </message>
    <message>
        <source>Application Font Size (Medium Resolution)</source>
        <translation>Schriftgröße (mittlere Auflösung)</translation>
    </message>
    <message>
        <source>Application Font Size (Large Resolution)</source>
        <translation>Schriftgröße (große Auflösung)</translation>
    </message>
    <message>
        <source>Image Thumbnail Size (Small Resolution)</source>
        <translation>Größe der Vorschaubilder (kleine Auflösung)</translation>
    </message>
    <message>
        <source>Image Thumbnail Size (Medium Resolution)</source>
        <translation>Größe der Vorschaubilder (mittlere Auflösung)</translation>
    </message>
    <message>
        <source>Image Thumbnail Size (Large Resolution)</source>
        <translation>Größe der Vorschaubilder (große Auflösung)</translation>
    </message>
    <message>
        <source>Font Size on Image Thumbnail (Small Resolution)</source>
        <translation>Schriftgröße auf Vorschaubildern (kleine Auflösung)</translation>
    </message>
    <message>
        <source>Font Size on Image Thumbnail (Medium Resolution)</source>
        <translation>Schriftgröße auf Vorschaubildern (mittlere Auflösung)</translation>
    </message>
    <message>
        <source>Font Size on Image Thumbnail (Large Resolution)</source>
        <translation>Schriftgröße auf Vorschaubildern (große Auflösung)</translation>
    </message>
    <message>
        <source>Threshold between Small and Medium Resolution (Megapixels)</source>
        <translation>Grenze zwischen kleiner und mittlerer Auflösung (Megapixel)</translation>
    </message>
    <message>
        <source>Threshold between Medium and Large Resolution (Megapixels)</source>
        <translation>Grenze zwischen mittlerer und großer Auflösung (Megapixel)</translation>
    </message>
    <message>
        <source>View Screen on Grayscale Monitor</source>
        <translation>Graustufenmonitor</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>Sitzung</translation>
    </message>
    <message>
        <source>Seconds between automatic saves (0: none)</source>
        <translation>Sekunden zwischen automatischen Sicherungen (0: keine)</translation>
    </message>
    <message>
        <source>Load Incomplete Studies</source>
        <translation>Unvollständige Studien laden</translation>
    </message>
</context>
<context>
    <name>PropertyBrowser</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>PropertyEditor</name>
    <message>
        <source>As the system</source>
        <translation>Wie das System</translation>
    </message>
</context>
<context>
    <name>SampleMaker</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Making the sample study was cancelled.</source>
        <translation>Das Erzeugen der Beispielstudie wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Shows only what holds all these words; Escape shows everything again</source>
        <translation>Zeigt nur, was alle diese Wörter enthält; Escape zeigt wieder alles</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>SeriesLoad</name>
    <message>
        <source>incomplete: reading was cancelled</source>
        <translation>unvollständig: Lesen abgebrochen</translation>
    </message>
    <message>
        <source>slices that could not be read: %1</source>
        <translation>nicht lesbare Schichten: %1</translation>
    </message>
</context>
<context>
    <name>SeriesTexts</name>
    <message>
        <source>born %1</source>
        <translation>geb. %1</translation>
    </message>
    <message>
        <source>Phase %1/%2  %3</source>
        <translation>Phase %1/%2  %3</translation>
    </message>
    <message>
        <source>preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>No series. Double-click one in the list, or drag it here.</source>
        <translation>Keine Serie. Klicken Sie in der Liste doppelt auf eine oder ziehen Sie sie hierher.</translation>
    </message>
    <message>
        <source>Reading headers…</source>
        <translation>Kopfdaten werden gelesen …</translation>
    </message>
    <message>
        <source>No series. Open a folder with File &gt; Open folder, or drop one here.</source>
        <translation>Keine Serie. Öffnen Sie einen Ordner mit Datei &gt; Ordner öffnen oder ziehen Sie einen hierher.</translation>
    </message>
</context>
<context>
    <name>SessionFile</name>
    <message>
        <source>The session is damaged and cannot be opened. Take an earlier copy of the file, or open the folder of the images instead.</source>
        <translation>Die Sitzung ist beschädigt und kann nicht geöffnet werden. Nehmen Sie eine frühere Kopie der Datei, oder öffnen Sie stattdessen den Ordner der Bilder.</translation>
    </message>
    <message>
        <source>The session was saved in format %1; this workstation reads format %2. Open it with the version of the workstation that has saved it.</source>
        <translation>Die Sitzung wurde in Format %1 gespeichert; diese Workstation liest Format %2. Öffnen Sie sie mit der Version der Workstation, die sie gespeichert hat.</translation>
    </message>
    <message>
        <source>This is not a session of the workstation.</source>
        <translation>Dies ist keine Sitzung der Workstation.</translation>
    </message>
    <message>
        <source>The session is cut short: %1 of %2 bytes are there. Copy the file once more, or open the folder of the images instead.</source>
        <translation>Die Sitzung ist abgeschnitten: %1 von %2 Bytes sind da. Kopieren Sie die Datei noch einmal, oder öffnen Sie stattdessen den Ordner der Bilder.</translation>
    </message>
    <message>
        <source>The session cannot be saved to %1: %2. What was saved there before is unchanged. Make room on the disk, or save to another folder.</source>
        <translation>Die Sitzung kann nicht in %1 gespeichert werden: %2. Was dort vorher gespeichert war, ist unverändert. Schaffen Sie Platz auf dem Datenträger, oder speichern Sie in einem anderen Ordner.</translation>
    </message>
    <message>
        <source>The session cannot be saved to %1: %2. Make room on the disk, or save to another folder.</source>
        <translation>Die Sitzung kann nicht in %1 gespeichert werden: %2. Schaffen Sie Platz auf dem Datenträger, oder speichern Sie in einem anderen Ordner.</translation>
    </message>
    <message>
        <source>The session %1 cannot be read: %2. Look whether the file is there and whether you may read it.</source>
        <translation>Die Sitzung %1 kann nicht gelesen werden: %2. Sehen Sie nach, ob die Datei da ist und ob Sie sie lesen dürfen.</translation>
    </message>
</context>
<context>
    <name>SessionTools</name>
    <message>
        <source>Sessions (*%1)</source>
        <translation>Sitzungen (*%1)</translation>
    </message>
    <message>
        <source>Save session</source>
        <translation>Sitzung speichern</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message>
        <source>Open session</source>
        <translation>Sitzung öffnen</translation>
    </message>
    <message>
        <source>Not saved in a session: %1. Open another session all the same, and lose it?</source>
        <translation>In keiner Sitzung gespeichert: %1. Trotzdem eine andere Sitzung öffnen und das verlieren?</translation>
    </message>
    <message>
        <source>Not saved in a session: %1. Save before another session is opened?</source>
        <translation>In keiner Sitzung gespeichert: %1. Vor dem Öffnen einer anderen Sitzung speichern?</translation>
    </message>
</context>
<context>
    <name>SettingsKeeper</name>
    <message>
        <source>The settings are saved now.</source>
        <translation>Die Einstellungen sind jetzt gesichert.</translation>
    </message>
    <message>
        <source>The settings cannot be saved to %1: make room on the disk, or allow writing there. They hold until you quit.</source>
        <translation>Die Einstellungen können nicht in %1 gesichert werden: schaffen Sie Platz auf dem Datenträger, oder erlauben Sie das Schreiben dort. Sie gelten bis zum Beenden.</translation>
    </message>
</context>
<context>
    <name>SiteFile</name>
    <message>
        <source>No file is named for the settings of this site.</source>
        <translation>Für die Einstellungen des Standorts ist keine Datei genannt.</translation>
    </message>
    <message>
        <source>You may not write %1.</source>
        <translation>Sie dürfen %1 nicht schreiben.</translation>
    </message>
    <message>
        <source>%1 is damaged or cannot be read. It has to be put right by hand first.</source>
        <translation>%1 ist beschädigt oder nicht lesbar. Das muss zuerst von Hand in Ordnung gebracht werden.</translation>
    </message>
    <message>
        <source>%1 could not be kept as %2.</source>
        <translation>%1 konnte nicht als %2 behalten werden.</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>SliceOverlay</name>
    <message>
        <source>step %1</source>
        <translation>Abstand %1</translation>
    </message>
    <message>
        <source>thick %1  %2</source>
        <translation>Dicke %1  %2</translation>
    </message>
    <message>
        <source>zoom %1 %</source>
        <translation>Zoom %1 %</translation>
    </message>
    <message>
        <source>colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>W %1  L %2 %3</source>
        <translation>W %1  L %2 %3</translation>
    </message>
    <message>
        <source>image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>across the images</source>
        <translation>quer zu den Bildern</translation>
    </message>
    <message>
        <source>Im %1/%2</source>
        <translation>Bild %1/%2</translation>
    </message>
    <message>
        <source>  inverted</source>
        <translation>  umgekehrt</translation>
    </message>
    <message>
        <source>mirrored</source>
        <translation>gespiegelt</translation>
    </message>
</context>
<context>
    <name>SliceViewer</name>
    <message>
        <source>The images cannot be shown.</source>
        <translation>Die Bilder können nicht gezeigt werden.</translation>
    </message>
</context>
<context>
    <name>SplitterButton</name>
    <message>
        <source>Fold this side away, or bring it back</source>
        <translation>Diese Seite wegklappen oder zurückholen</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>Locked: %1</source>
        <translation>Gesperrt: %1</translation>
    </message>
    <message>
        <source>Only %1 can be opened, until File &gt; Lock patient is switched off.</source>
        <translation>Nur %1 kann geöffnet werden, bis Datei &gt; Patient sperren ausgeschaltet wird.</translation>
    </message>
</context>
<context>
    <name>StudiesPart</name>
    <message>
        <source>Studies</source>
        <translation>Studien</translation>
    </message>
</context>
<context>
    <name>StudyPanel</name>
    <message>
        <source>Search studies</source>
        <translation>Studien suchen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>DICOM attributes</source>
        <translation>DICOM-Attribute</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Close &amp;patient</source>
        <translation>&amp;Patient schließen</translation>
    </message>
    <message>
        <source>Studies</source>
        <translation>Studien</translation>
    </message>
    <message>
        <source>Opens what is selected; Ctrl or Shift selects several</source>
        <translation>Öffnet die Auswahl; mit Strg oder Umschalt wählen Sie mehrere</translation>
    </message>
    <message>
        <source>Shows all DICOM attributes of the selected series&apos; first image</source>
        <translation>Zeigt alle DICOM-Attribute des ersten Bildes der gewählten Serie</translation>
    </message>
    <message>
        <source>Closes what is selected</source>
        <translation>Schließt die Auswahl</translation>
    </message>
    <message>
        <source>Closes everything of the selected patients</source>
        <translation>Schließt alles der gewählten Patienten</translation>
    </message>
    <message>
        <source>No studies are open.

Open a folder with File &gt; Open folder, or drop one here.</source>
        <translation>Es sind keine Studien geöffnet.

Öffnen Sie einen Ordner mit Datei &gt; Ordner öffnen oder ziehen Sie einen hierher.</translation>
    </message>
    <message>
        <source>Open (%1)</source>
        <translation>Öffnen (%1)</translation>
    </message>
</context>
<context>
    <name>StudySession</name>
    <message>
        <source>Looking for DICOM files</source>
        <translation>DICOM-Dateien werden gesucht</translation>
    </message>
    <message>
        <source>Reading series</source>
        <translation>Serien werden gelesen</translation>
    </message>
</context>
<context>
    <name>StudyTree</name>
    <message>
        <source>no images</source>
        <translation>keine Bilder</translation>
    </message>
    <message>
        <source>images: %1</source>
        <translation>Bilder: %1</translation>
    </message>
    <message>
        <source>%1, phases: %2</source>
        <translation>%1, Phasen: %2</translation>
    </message>
    <message>
        <source>Studies</source>
        <translation>Studien</translation>
    </message>
    <message>
        <source>Double-click to open in all viewers, or drag to one viewer.</source>
        <translation>Doppelklick öffnet in allen Ansichten; oder auf eine Ansicht ziehen.</translation>
    </message>
    <message>
        <source>incomplete</source>
        <translation>unvollständig</translation>
    </message>
    <message>
        <source>A presentation state tells how images are shown; it cannot be opened by itself.</source>
        <translation>Ein Darstellungszustand sagt, wie Bilder gezeigt werden; er kann nicht für sich geöffnet werden.</translation>
    </message>
    <message>
        <source>Cannot be opened: there are no images in it that could be shown.</source>
        <translation>Kann nicht geöffnet werden: Es sind keine Bilder darin, die gezeigt werden könnten.</translation>
    </message>
    <message>
        <source>Nothing here holds “%1”. Press Escape in the search field to see everything.</source>
        <translation>Nichts hier enthält „%1“. Escape im Suchfeld zeigt wieder alles.</translation>
    </message>
</context>
<context>
    <name>ToolBarLabels</name>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>Aufteilung</translation>
    </message>
    <message>
        <source>Plane</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Spiegeln</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>Maus</translation>
    </message>
</context>
<context>
    <name>ToolBarLayout</name>
    <message>
        <source>There are two tool bars with the Id &quot;%1&quot;.</source>
        <translation>Es gibt zwei Werkzeugleisten mit der Id &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no size of a spacer: give pixels, 0 to %2.</source>
        <translation>&quot;%1&quot; ist keine Größe eines Abstands: Geben Sie Pixel an, 0 bis %2.</translation>
    </message>
    <message>
        <source>&lt;%1&gt; is not allowed here.</source>
        <translation>&lt;%1&gt; ist hier nicht erlaubt.</translation>
    </message>
    <message>
        <source>&lt;%1&gt; has no attribute &quot;%2&quot;.</source>
        <translation>&lt;%1&gt; hat kein Attribut &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>&lt;%1&gt; needs the attribute &quot;%2&quot;.</source>
        <translation>&lt;%1&gt; braucht das Attribut &quot;%2&quot;.</translation>
    </message>
</context>
<context>
    <name>ToolBars</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1, line %2: There is no tool &quot;%3&quot;.</source>
        <translation>%1, Zeile %2: Es gibt kein Werkzeug „%3“.</translation>
    </message>
    <message>
        <source>Your file of the tool bars names tools that do not exist. They are left out.</source>
        <translation>Ihre Datei der Werkzeugleisten nennt Werkzeuge, die es nicht gibt. Sie werden weggelassen.</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1, Zeile %2</translation>
    </message>
    <message>
        <source>The tool bars are those of the program, because your file cannot be used.
%1: %2</source>
        <translation>Die Werkzeugleisten sind die des Programms, weil Ihre Datei nicht verwendet werden kann.
%1: %2</translation>
    </message>
</context>
<context>
    <name>Tools</name>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Settings…</source>
        <translation>&amp;Einstellungen …</translation>
    </message>
    <message>
        <source>Look at the settings and change them</source>
        <translation>Einstellungen ansehen und ändern</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>&amp;Open folder…</source>
        <translation>Ordner &amp;öffnen …</translation>
    </message>
    <message>
        <source>Look for DICOM files in a folder</source>
        <translation>DICOM-Dateien in einem Ordner suchen</translation>
    </message>
    <message>
        <source>Subfolders are looked through too. The largest series found is shown in all viewers.</source>
        <translation>Auch Unterordner werden durchsucht. Die größte gefundene Serie wird in allen Ansichten gezeigt.</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Close all studies</source>
        <translation>Alle Studien schließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>End the workstation</source>
        <translation>Die Workstation beenden</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>&amp;Manual</source>
        <translation>&amp;Handbuch</translation>
    </message>
    <message>
        <source>How the workstation is used</source>
        <translation>Wie die Workstation bedient wird</translation>
    </message>
    <message>
        <source>&amp;Keyboard shortcuts</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>List all keyboard shortcuts</source>
        <translation>Alle Tastenkürzel auflisten</translation>
    </message>
    <message>
        <source>&amp;About Movara</source>
        <translation>Ü&amp;ber Movara</translation>
    </message>
    <message>
        <source>The version of this program</source>
        <translation>Die Version dieses Programms</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>Aufteilung</translation>
    </message>
    <message>
        <source>&amp;One viewer</source>
        <translation>&amp;Eine Ansicht</translation>
    </message>
    <message>
        <source>&amp;Four viewers</source>
        <translation>&amp;Vier Ansichten</translation>
    </message>
    <message>
        <source>Axial, sagittal, coronal and 3D</source>
        <translation>Axial, sagittal, koronal und 3D</translation>
    </message>
    <message>
        <source>One &amp;large viewer</source>
        <translation>Eine &amp;große Ansicht</translation>
    </message>
    <message>
        <source>One large viewer and three small ones</source>
        <translation>Eine große Ansicht und drei kleine</translation>
    </message>
    <message>
        <source>&amp;Layout</source>
        <translation>&amp;Aufteilung</translation>
    </message>
    <message>
        <source>Choose how the viewers share the screen</source>
        <translation>Wählen, wie sich die Ansichten den Bildschirm teilen</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Verknüpfung</translation>
    </message>
    <message>
        <source>&amp;Attached to linked viewers</source>
        <translation>&amp;Mit anderen Ansichten verknüpft</translation>
    </message>
    <message>
        <source>Whether the active viewer follows its linked viewers</source>
        <translation>Ob die aktive Ansicht den verknüpften folgt</translation>
    </message>
    <message>
        <source>The badge in the corner of a viewer shows it, and switches it by a click.</source>
        <translation>Das Zeichen in der Ecke einer Ansicht zeigt es und schaltet es durch einen Klick um.</translation>
    </message>
    <message>
        <source>&amp;Scrolling</source>
        <translation>&amp;Blättern</translation>
    </message>
    <message>
        <source>Viewers in parallel planes are scrolled together</source>
        <translation>Ansichten paralleler Ebenen blättern gemeinsam</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>Ver&amp;größerung</translation>
    </message>
    <message>
        <source>Viewers are enlarged together</source>
        <translation>Ansichten werden gemeinsam vergrößert</translation>
    </message>
    <message>
        <source>&amp;Pan</source>
        <translation>&amp;Verschieben</translation>
    </message>
    <message>
        <source>Images are moved together</source>
        <translation>Bilder werden gemeinsam verschoben</translation>
    </message>
    <message>
        <source>&amp;Window level</source>
        <translation>&amp;Fensterung</translation>
    </message>
    <message>
        <source>Viewers of one modality share their window</source>
        <translation>Ansichten einer Modalität teilen ihre Fensterung</translation>
    </message>
    <message>
        <source>&amp;Time phase</source>
        <translation>&amp;Zeitphase</translation>
    </message>
    <message>
        <source>Viewers show the same time phase</source>
        <translation>Ansichten zeigen dieselbe Zeitphase</translation>
    </message>
    <message>
        <source>3D &amp;rotation</source>
        <translation>3D-&amp;Drehung</translation>
    </message>
    <message>
        <source>3D views are turned together</source>
        <translation>3D-Ansichten werden gemeinsam gedreht</translation>
    </message>
    <message>
        <source>Time phase</source>
        <translation>Zeitphase</translation>
    </message>
    <message>
        <source>&amp;Next phase</source>
        <translation>&amp;Nächste Phase</translation>
    </message>
    <message>
        <source>Show the next time phase</source>
        <translation>Die nächste Zeitphase zeigen</translation>
    </message>
    <message>
        <source>&amp;Previous phase</source>
        <translation>&amp;Vorige Phase</translation>
    </message>
    <message>
        <source>Show the previous time phase</source>
        <translation>Die vorige Zeitphase zeigen</translation>
    </message>
    <message>
        <source>Plane</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>&amp;Axial</source>
        <translation>&amp;Axial</translation>
    </message>
    <message>
        <source>Show the axial plane</source>
        <translation>Die axiale Ebene zeigen</translation>
    </message>
    <message>
        <source>&amp;Sagittal</source>
        <translation>&amp;Sagittal</translation>
    </message>
    <message>
        <source>Show the sagittal plane</source>
        <translation>Die sagittale Ebene zeigen</translation>
    </message>
    <message>
        <source>&amp;Coronal</source>
        <translation>&amp;Koronal</translation>
    </message>
    <message>
        <source>Show the coronal plane</source>
        <translation>Die koronale Ebene zeigen</translation>
    </message>
    <message>
        <source>&amp;Original</source>
        <translation>&amp;Original</translation>
    </message>
    <message>
        <source>Show the plane in which the images were acquired</source>
        <translation>Die Ebene zeigen, in der die Bilder aufgenommen wurden</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>&amp;Reset view</source>
        <translation>Ansicht &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Full-screen viewer</source>
        <translation>Eine Ansicht &amp;allein</translation>
    </message>
    <message>
        <source>Show the active viewer alone, or all again</source>
        <translation>Die aktive Ansicht allein zeigen oder wieder alle</translation>
    </message>
    <message>
        <source>A double click on a viewer does the same.</source>
        <translation>Ein Doppelklick auf eine Ansicht tut dasselbe.</translation>
    </message>
    <message>
        <source>Reference &amp;lines</source>
        <translation>&amp;Referenzlinien</translation>
    </message>
    <message>
        <source>Show where the other viewers&apos; planes are</source>
        <translation>Zeigen, wo die Ebenen der anderen Ansichten liegen</translation>
    </message>
    <message>
        <source>Corner &amp;texts</source>
        <translation>&amp;Texte in den Ecken</translation>
    </message>
    <message>
        <source>Show patient, series, position and window</source>
        <translation>Patient, Serie, Ort und Fensterung zeigen</translation>
    </message>
    <message>
        <source>&amp;Cine</source>
        <translation>&amp;Film</translation>
    </message>
    <message>
        <source>Stop &amp;cine</source>
        <translation>&amp;Film anhalten</translation>
    </message>
    <message>
        <source>Play the time phases one after the other</source>
        <translation>Die Zeitphasen nacheinander abspielen</translation>
    </message>
    <message>
        <source>How fast is a setting.</source>
        <translation>Wie schnell, sagt eine Einstellung.</translation>
    </message>
    <message>
        <source>&amp;Edit tool bars…</source>
        <translation>&amp;Werkzeugleisten bearbeiten …</translation>
    </message>
    <message>
        <source>Put the tool bars together</source>
        <translation>Die Werkzeugleisten zusammenstellen</translation>
    </message>
    <message>
        <source>They are described in a file of yours, which is read at the next start.</source>
        <translation>Eine Datei von Ihnen beschreibt sie; sie wird beim nächsten Start gelesen.</translation>
    </message>
    <message>
        <source>&amp;Invert</source>
        <translation>&amp;Umkehren</translation>
    </message>
    <message>
        <source>Exchange dark and bright</source>
        <translation>Hell und dunkel vertauschen</translation>
    </message>
    <message>
        <source>Viewers that share their window are inverted together.</source>
        <translation>Ansichten, die ihre Fensterung teilen, werden gemeinsam umgekehrt.</translation>
    </message>
    <message>
        <source>Flip &amp;horizontally</source>
        <translation>&amp;Horizontal spiegeln</translation>
    </message>
    <message>
        <source>Exchange left and right of the image</source>
        <translation>Links und rechts des Bildes vertauschen</translation>
    </message>
    <message>
        <source>The letters at the edges follow, and the viewer says that its image is mirrored.</source>
        <translation>Die Buchstaben an den Rändern folgen, und die Ansicht sagt, dass ihr Bild gespiegelt ist.</translation>
    </message>
    <message>
        <source>Flip &amp;vertically</source>
        <translation>&amp;Vertikal spiegeln</translation>
    </message>
    <message>
        <source>Exchange top and bottom of the image</source>
        <translation>Oben und unten des Bildes vertauschen</translation>
    </message>
    <message>
        <source>Save &amp;picture of viewer…</source>
        <translation>&amp;Bild der Ansicht speichern …</translation>
    </message>
    <message>
        <source>Save what the active viewer shows to a file</source>
        <translation>Was die aktive Ansicht zeigt, in einer Datei speichern</translation>
    </message>
    <message>
        <source>With the texts in its corners: switch them off where the patient is to stay unknown.</source>
        <translation>Mit den Texten in den Ecken: Schalten Sie sie aus, wenn der Patient unerkannt bleiben soll.</translation>
    </message>
    <message>
        <source>Save picture of &amp;window…</source>
        <translation>Bild des &amp;Fensters speichern …</translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation>Messen</translation>
    </message>
    <message>
        <source>&amp;Copy results</source>
        <translation>Ergebnisse &amp;kopieren</translation>
    </message>
    <message>
        <source>Copy the results of these images as text</source>
        <translation>Die Ergebnisse dieser Bilder als Text kopieren</translation>
    </message>
    <message>
        <source>D&amp;elete measurement</source>
        <translation>Messung &amp;löschen</translation>
    </message>
    <message>
        <source>Delete the picked measurement (Del)</source>
        <translation>Die gewählte Messung löschen (Entf)</translation>
    </message>
    <message>
        <source>Delete a&amp;ll measurements</source>
        <translation>A&amp;lle Messungen löschen</translation>
    </message>
    <message>
        <source>Delete all measurements of these images</source>
        <translation>Alle Messungen dieser Bilder löschen</translation>
    </message>
    <message>
        <source>&amp;Distance</source>
        <translation>&amp;Strecke</translation>
    </message>
    <message>
        <source>Left button: measure a distance</source>
        <translation>Linke Taste: eine Strecke messen</translation>
    </message>
    <message>
        <source>&amp;Angle</source>
        <translation>&amp;Winkel</translation>
    </message>
    <message>
        <source>Left button: measure an angle</source>
        <translation>Linke Taste: einen Winkel messen</translation>
    </message>
    <message>
        <source>Click the end of one leg, the apex, and the end of the other leg.</source>
        <translation>Klicken Sie das Ende eines Schenkels, den Scheitel und das Ende des anderen Schenkels an.</translation>
    </message>
    <message>
        <source>&amp;Region</source>
        <translation>&amp;Bereich</translation>
    </message>
    <message>
        <source>Left button: measure area and values of a region</source>
        <translation>Linke Taste: Fläche und Werte eines Bereichs messen</translation>
    </message>
    <message>
        <source>Tells the area, and mean, standard deviation, least and greatest value in it. On a plane across the acquired images the values are interpolated.</source>
        <translation>Nennt die Fläche sowie Mittel, Standardabweichung, kleinsten und größten Wert darin. Auf einer Ebene quer zu den aufgenommenen Bildern werden die Werte interpoliert.</translation>
    </message>
    <message>
        <source>&amp;Ellipse</source>
        <translation>&amp;Ellipse</translation>
    </message>
    <message>
        <source>Regions are ellipses</source>
        <translation>Bereiche sind Ellipsen</translation>
    </message>
    <message>
        <source>&amp;Rectangle</source>
        <translation>&amp;Rechteck</translation>
    </message>
    <message>
        <source>Regions are rectangles</source>
        <translation>Bereiche sind Rechtecke</translation>
    </message>
    <message>
        <source>&amp;Polygon</source>
        <translation>&amp;Polygon</translation>
    </message>
    <message>
        <source>Regions are drawn freely, or by their corners</source>
        <translation>Bereiche werden frei oder mit ihren Ecken gezeichnet</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>Maus</translation>
    </message>
    <message>
        <source>Left button: change the window of values</source>
        <translation>Linke Taste: die Fensterung ändern</translation>
    </message>
    <message>
        <source>To the right widens the window, downwards raises its level. In 3D, Shift and the left button do so.</source>
        <translation>Nach rechts wird das Fenster breiter, nach unten steigt seine Mitte. In 3D tun das Umschalt und die linke Taste.</translation>
    </message>
    <message>
        <source>&amp;Scroll</source>
        <translation>&amp;Blättern</translation>
    </message>
    <message>
        <source>Left button: go through the slices</source>
        <translation>Linke Taste: durch die Schichten blättern</translation>
    </message>
    <message>
        <source>The wheel, and the arrow and page keys, do so whatever tool is chosen.</source>
        <translation>Das Rad sowie die Pfeil- und Bildtasten tun das bei jedem Werkzeug.</translation>
    </message>
    <message>
        <source>Left button: enlarge or make smaller</source>
        <translation>Linke Taste: vergrößern oder verkleinern</translation>
    </message>
    <message>
        <source>The right button, and the wheel with Ctrl, do so whatever tool is chosen.</source>
        <translation>Die rechte Taste, und das Rad mit Strg, tun das bei jedem Werkzeug.</translation>
    </message>
    <message>
        <source>Left button: move the image</source>
        <translation>Linke Taste: das Bild verschieben</translation>
    </message>
    <message>
        <source>The middle button, and Shift with the left one, do so whatever tool is chosen.</source>
        <translation>Die mittlere Taste, und Umschalt mit der linken, tun das bei jedem Werkzeug.</translation>
    </message>
    <message>
        <source>&amp;Turn</source>
        <translation>&amp;Drehen</translation>
    </message>
    <message>
        <source>Left button: turn the plane, or the volume in 3D</source>
        <translation>Linke Taste: die Ebene drehen, oder das Volumen in 3D</translation>
    </message>
    <message>
        <source>Ctrl and the left button do so whatever tool is chosen.</source>
        <translation>Strg und die linke Taste tun das bei jedem Werkzeug.</translation>
    </message>
    <message>
        <source>The active viewer alone, with what it shows</source>
        <translation>Die aktive Ansicht allein, mit dem, was sie zeigt</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Bring back deleted or moved measurements</source>
        <translation>Gelöschte oder verschobene Messungen zurückholen</translation>
    </message>
    <message>
        <source>Takes back, one after the other, what was deleted of the measurements or changed by dragging them.</source>
        <translation>Nimmt nacheinander zurück, was an Messungen gelöscht oder durch Ziehen geändert wurde.</translation>
    </message>
    <message>
        <source>Click the two ends, or drag from one to the other. Shapes and their handles can be dragged; Del removes the picked one. Of the one being drawn Backspace takes the last point back, and Esc gives it up.</source>
        <translation>Klicken Sie die beiden Enden an, oder ziehen Sie von einem zum anderen. Figuren und ihre Griffe lassen sich ziehen; Entf löscht die gewählte. Von der, die gerade gezeichnet wird, nimmt die Rücktaste den letzten Punkt zurück, und Esc gibt sie auf.</translation>
    </message>
    <message>
        <source>Show the whole image in its own plane and first window</source>
        <translation>Das ganze Bild in der eigenen Ebene und ersten Fensterung zeigen</translation>
    </message>
    <message>
        <source>Linked viewers follow, but for the plane. The slice stays, turned back to the viewer&apos;s plane; inverting and flipping end.</source>
        <translation>Verknüpfte Ansichten folgen, außer in der Ebene. Die Schicht bleibt, zurückgedreht in die Ebene der Ansicht; Umkehren und Spiegeln enden.</translation>
    </message>
    <message>
        <source>Save what the active window shows to a file</source>
        <translation>Was das aktive Fenster zeigt, in eine Datei speichern</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Full &amp;screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>Let the window fill its monitors, without a frame</source>
        <translation>Das Fenster füllt seine Monitore, ohne Rahmen</translation>
    </message>
    <message>
        <source>&amp;Tool bars</source>
        <translation>&amp;Werkzeugleisten</translation>
    </message>
    <message>
        <source>Show the tool bars, or leave their room to the viewers</source>
        <translation>Die Werkzeugleisten zeigen, oder ihren Platz den Ansichten lassen</translation>
    </message>
    <message>
        <source>&amp;Monitors…</source>
        <translation>&amp;Monitore …</translation>
    </message>
    <message>
        <source>Choose what each monitor shows</source>
        <translation>Wählen, was jeder Monitor zeigt</translation>
    </message>
    <message>
        <source>Viewers can be on several monitors; the list of studies stands beside them or has a window of its own.</source>
        <translation>Ansichten können auf mehreren Monitoren sein; die Studienliste steht daneben oder hat ein eigenes Fenster.</translation>
    </message>
    <message>
        <source>&amp;Monitor settings…</source>
        <translation>&amp;Monitor-Einstellungen…</translation>
    </message>
    <message>
        <source>Split displays, and choose sizes for monitors</source>
        <translation>Bildschirme teilen und Größen für Monitore wählen</translation>
    </message>
    <message>
        <source>Fonts and thumbnails are as large as is right for the size of their monitor.</source>
        <translation>Schriften und Vorschaubilder sind so groß, wie es zur Größe ihres Monitors passt.</translation>
    </message>
    <message>
        <source>Open &amp;session…</source>
        <translation>&amp;Sitzung öffnen…</translation>
    </message>
    <message>
        <source>Open images in the views in which they were saved</source>
        <translation>Bilder in den Ansichten öffnen, in denen sie gespeichert wurden</translation>
    </message>
    <message>
        <source>The same series in the same viewers, with their windows, links and measurements.</source>
        <translation>Dieselben Serien in denselben Ansichten, mit ihren Fensterungen, Verknüpfungen und Messungen.</translation>
    </message>
    <message>
        <source>Sa&amp;ve session…</source>
        <translation>Sitzung s&amp;peichern…</translation>
    </message>
    <message>
        <source>Save what is open, and how, to a file</source>
        <translation>Was offen ist, und wie, in einer Datei speichern</translation>
    </message>
    <message>
        <source>Images are not copied: the file tells where they are. Only you can read it.</source>
        <translation>Bilder werden nicht kopiert: Die Datei sagt, wo sie sind. Nur Sie können sie lesen.</translation>
    </message>
    <message>
        <source>Panels</source>
        <translation>Bedienfelder</translation>
    </message>
    <message>
        <source>&amp;Studies</source>
        <translation>&amp;Studien</translation>
    </message>
    <message>
        <source>Show the list of studies, or leave its room to the viewers</source>
        <translation>Die Liste der Studien zeigen oder ihren Platz den Ansichten lassen</translation>
    </message>
    <message>
        <source>&amp;Measurements</source>
        <translation>&amp;Messungen</translation>
    </message>
    <message>
        <source>Show all measurements with their values, or close their panel</source>
        <translation>Alle Messungen mit ihren Werten zeigen oder ihr Bedienfeld schließen</translation>
    </message>
    <message>
        <source>&amp;Links</source>
        <translation>&amp;Verknüpfungen</translation>
    </message>
    <message>
        <source>Show how the viewers are linked, or close the panel</source>
        <translation>Zeigen, wie die Ansichten verknüpft sind, oder das Bedienfeld schließen</translation>
    </message>
    <message>
        <source>S&amp;ettings panel</source>
        <translation>&amp;Einstellungen daneben</translation>
    </message>
    <message>
        <source>Show the settings beside the viewers, or close their panel</source>
        <translation>Die Einstellungen neben den Ansichten zeigen oder ihr Bedienfeld schließen</translation>
    </message>
    <message>
        <source>L&amp;og</source>
        <translation>&amp;Protokoll</translation>
    </message>
    <message>
        <source>Show what the program has logged, or close the panel</source>
        <translation>Zeigen, was das Programm protokolliert hat, oder das Bedienfeld schließen</translation>
    </message>
    <message>
        <source>&amp;Reset panels</source>
        <translation>Bedienfelder &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Close all panels but the list of studies</source>
        <translation>Alle Bedienfelder außer der Liste der Studien schließen</translation>
    </message>
    <message>
        <source>Show the panel, or close it</source>
        <translation>Das Bedienfeld zeigen oder schließen</translation>
    </message>
    <message>
        <source>&amp;Lock patient</source>
        <translation>P&amp;atient sperren</translation>
    </message>
    <message>
        <source>Open only studies of the patients who are open now</source>
        <translation>Nur Studien der Patienten öffnen, die jetzt offen sind</translation>
    </message>
    <message>
        <source>The lock holds until it is switched off, also when the studies are closed. Patients are told apart by their ID: one without, or with a single character, cannot be locked.</source>
        <translation>Die Sperre gilt, bis sie ausgeschaltet wird, auch wenn die Studien geschlossen werden. Patienten werden an ihrer ID unterschieden: Einer ohne ID, oder mit einer aus nur einem Zeichen, kann nicht gesperrt werden.</translation>
    </message>
</context>
<context>
    <name>UI.ColorScheme</name>
    <message>
        <source>Color Scheme</source>
        <translation>Farbschema</translation>
    </message>
</context>
<context>
    <name>ViewerMenu</name>
    <message>
        <source>Phase</source>
        <translation>Phase</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
    <message>
        <source>Shows this phase</source>
        <translation>Zeigt diese Phase</translation>
    </message>
    <message>
        <source>Linked in</source>
        <translation>Verknüpft in</translation>
    </message>
    <message>
        <source>Whether this viewer follows the others in this</source>
        <translation>Ob diese Ansicht den anderen hierin folgt</translation>
    </message>
</context>
<context>
    <name>ViewerPage</name>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Below</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Upper part</source>
        <translation>Oberer Teil</translation>
    </message>
    <message>
        <source>Lower part</source>
        <translation>Unterer Teil</translation>
    </message>
    <message>
        <source>Left part</source>
        <translation>Linker Teil</translation>
    </message>
    <message>
        <source>Right part</source>
        <translation>Rechter Teil</translation>
    </message>
    <message>
        <source>%1 (monitor %2)</source>
        <translation>%1 (Monitor %2)</translation>
    </message>
</context>
<context>
    <name>ViewerRenderWidget</name>
    <message>
        <source>Attach this viewer to its linked viewers, or detach it (L)</source>
        <translation>Diese Ansicht mit den anderen verknüpfen oder lösen (L)</translation>
    </message>
</context>
<context>
    <name>ViewersPart</name>
    <message>
        <source>Viewers</source>
        <translation>Ansichten</translation>
    </message>
    <message>
        <source>the viewers of screen %1 (layout %2)</source>
        <translation>die Ansichten von Bildschirm %1 (Anordnung %2)</translation>
    </message>
    <message>
        <source>the series %1</source>
        <translation>die Serie %1</translation>
    </message>
</context>
<context>
    <name>VolumeOverlay</name>
    <message>
        <source>3D</source>
        <translation>3D</translation>
    </message>
    <message>
        <source>values above %1 %2</source>
        <translation>Werte über %1 %2</translation>
    </message>
</context>
<context>
    <name>VolumeViewer</name>
    <message>
        <source>The 3D view needs an X display, and there is none. Everything else works.
To see it, start the workstation on a desktop or with xvfb-run.</source>
        <translation>Die 3D-Ansicht braucht ein X-Display, und es gibt keines. Alles andere geht.
Starten Sie die Workstation auf einem Desktop oder mit xvfb-run, um sie zu sehen.</translation>
    </message>
    <message>
        <source>The 3D view needs a series of several slices.</source>
        <translation>Die 3D-Ansicht braucht eine Serie mit mehreren Schichten.</translation>
    </message>
    <message>
        <source>There is no 3D view of colour images.</source>
        <translation>Von Farbbildern gibt es keine 3D-Ansicht.</translation>
    </message>
    <message>
        <source>The 3D view follows when all slices have been read.</source>
        <translation>Die 3D-Ansicht folgt, wenn alle Schichten gelesen sind.</translation>
    </message>
    <message>
        <source>The 3D view cannot be drawn: %1</source>
        <translation>Die 3D-Ansicht kann nicht gezeichnet werden: %1</translation>
    </message>
</context>
<context>
    <name>WorkSession</name>
    <message>
        <source>Looking for DICOM files…</source>
        <translation>DICOM-Dateien werden gesucht …</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>Making the sample study</source>
        <translation>Beispielstudie wird erzeugt</translation>
    </message>
    <message>
        <source>Making the sample study…</source>
        <translation>Beispielstudie wird erzeugt …</translation>
    </message>
    <message>
        <source>Open a DICOM folder</source>
        <translation>DICOM-Ordner öffnen</translation>
    </message>
    <message>
        <source>About Movara</source>
        <translation>Über Movara</translation>
    </message>
    <message>
        <source>&lt;b&gt;Movara&lt;/b&gt; reference workstation&lt;br&gt;Version %1&lt;br&gt;&lt;br&gt;Not a medical device: not for diagnosis.</source>
        <translation>&lt;b&gt;Movara&lt;/b&gt; Referenz-Workstation&lt;br&gt;Version %1&lt;br&gt;&lt;br&gt;Kein Medizinprodukt: nicht zur Diagnose.</translation>
    </message>
    <message>
        <source>Opening was cancelled.</source>
        <translation>Das Öffnen wurde abgebrochen.</translation>
    </message>
    <message>
        <source>There are no files here. Open another folder with File &gt; Open folder.</source>
        <translation>Hier sind keine Dateien. Öffnen Sie einen anderen Ordner mit Datei &gt; Ordner öffnen.</translation>
    </message>
    <message>
        <source>There are no images here (files looked at: %1). Open another folder with File &gt; Open folder.</source>
        <translation>Hier sind keine Bilder (durchsuchte Dateien: %1). Öffnen Sie einen anderen Ordner mit Datei &gt; Ordner öffnen.</translation>
    </message>
    <message>
        <source>Files looked at: %1</source>
        <translation>Durchsuchte Dateien: %1</translation>
    </message>
    <message>
        <source>What was open stays open.</source>
        <translation>Was offen war, bleibt offen.</translation>
    </message>
    <message>
        <source>Opening</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>%1 – Movara</source>
        <translation>%1 – Movara</translation>
    </message>
    <message>
        <source>Movara</source>
        <translation>Movara</translation>
    </message>
    <message>
        <source>Closed: %1</source>
        <translation>Geschlossen: %1</translation>
    </message>
    <message>
        <source>There are viewers for %1 of the %2 chosen series.</source>
        <translation>Für %1 der %2 gewählten Serien gibt es Ansichten.</translation>
    </message>
    <message>
        <source>Looking for images has failed: %1</source>
        <translation>Die Suche nach Bildern ist gescheitert: %1</translation>
    </message>
    <message>
        <source>Nothing can be read from %1: %2 Open another folder with File &gt; Open folder.</source>
        <translation>Aus %1 kann nichts gelesen werden: %2 Öffnen Sie einen anderen Ordner mit Datei &gt; Ordner öffnen.</translation>
    </message>
    <message>
        <source>The patient is no longer locked.</source>
        <translation>Der Patient ist nicht mehr gesperrt.</translation>
    </message>
</context>
<context>
    <name>WorkstationApplication</name>
    <message>
        <source>Something is still being worked on, and will be lost. Quit all the same?</source>
        <translation>Es wird noch an etwas gearbeitet, das verloren geht. Trotzdem beenden?</translation>
    </message>
    <message>
        <source>Not for diagnosis</source>
        <translation>Nicht zur Diagnose</translation>
    </message>
    <message>
        <source>Not saved in a session: %1. Save before quitting?</source>
        <translation>In keiner Sitzung gespeichert: %1. Vor dem Beenden speichern?</translation>
    </message>
    <message>
        <source>Not saved in a session: %1. Quit all the same, and lose it?</source>
        <translation>In keiner Sitzung gespeichert: %1. Trotzdem beenden und es verlieren?</translation>
    </message>
</context>
<context>
    <name>WorkstationSessions</name>
    <message>
        <source>The session %1 holds something that this workstation does not understand. Open it with the version of the workstation that has saved it.</source>
        <translation>Die Sitzung %1 enthält etwas, das diese Workstation nicht versteht. Öffnen Sie sie mit der Version der Workstation, die sie gespeichert hat.</translation>
    </message>
    <message>
        <source>the folder or file %1</source>
        <translation>der Ordner oder die Datei %1</translation>
    </message>
    <message>
        <source>Look whether the drive is connected and nothing was moved, then open the session again.</source>
        <translation>Sehen Sie nach, ob das Laufwerk verbunden und nichts verschoben ist, und öffnen Sie die Sitzung dann noch einmal.</translation>
    </message>
    <message>
        <source>The session is open, but some of it is not there any more:</source>
        <translation>Die Sitzung ist geöffnet, aber einiges davon ist nicht mehr da:</translation>
    </message>
    <message>
        <source>The session is not opened. There are no images any more in:</source>
        <translation>Die Sitzung wurde nicht geöffnet. Es gibt keine Bilder mehr in:</translation>
    </message>
    <message>
        <source>Movara</source>
        <translation>Movara</translation>
    </message>
    <message>
        <source>The workstation was not closed properly. Restore what was open?</source>
        <translation>Die Workstation wurde nicht ordnungsgemäß beendet. Soll wiederhergestellt werden, was offen war?</translation>
    </message>
    <message>
        <source>It was saved automatically on %1.</source>
        <translation>Es wurde am %1 automatisch gesichert.</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>Open the same images in the same views, with all measurements</source>
        <translation>Dieselben Bilder in denselben Ansichten öffnen, mit allen Messungen</translation>
    </message>
    <message>
        <source>Delete what was saved; it cannot be restored any more</source>
        <translation>Löschen, was gesichert wurde; es lässt sich nicht mehr wiederherstellen</translation>
    </message>
    <message>
        <source>Keep it, and ask again at the next start</source>
        <translation>Aufheben und beim nächsten Start noch einmal fragen</translation>
    </message>
    <message>
        <source>It is kept as %1.</source>
        <translation>Sie ist als %1 aufgehoben.</translation>
    </message>
    <message>
        <source>Nothing is saved automatically: make room on the disk for %1, or allow writing there, then start the workstation again.</source>
        <translation>Es wird nichts automatisch gesichert: schaffen Sie Platz auf dem Datenträger für %1, oder erlauben Sie das Schreiben dort, und starten Sie die Workstation neu.</translation>
    </message>
    <message>
        <source>Opening was cancelled. Of the session there is missing:</source>
        <translation>Das Öffnen wurde abgebrochen. Von der Sitzung fehlt:</translation>
    </message>
    <message>
        <source>Open the session again to see all of it.</source>
        <translation>Öffnen Sie die Sitzung noch einmal, um alles zu sehen.</translation>
    </message>
</context>
</TS>
