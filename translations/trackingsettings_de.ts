<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AngleTableWidget</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>rx</source>
        <translation>rx</translation>
    </message>
    <message>
        <source>ry</source>
        <translation>ry</translation>
    </message>
    <message>
        <source>rz</source>
        <translation>rz</translation>
    </message>
</context>
<context>
    <name>BodyAdministrationDlg</name>
    <message>
        <source>Body Administration</source>
        <translation>Körperverwaltung</translation>
    </message>
    <message>
        <source>Body administration</source>
        <translation>Körperverwaltung</translation>
    </message>
    <message>
        <source>Body types</source>
        <translation>Arten von Körpern</translation>
    </message>
    <message>
        <source>Adjust 6DOF filter for bodies</source>
        <translation>6DOF-Filter der Körper einstellen</translation>
    </message>
    <message>
        <source>Fi&amp;lter</source>
        <translation>&amp;Filter</translation>
    </message>
    <message>
        <source>Calibrate the selected body</source>
        <translation>Den gewählten Körper kalibrieren</translation>
    </message>
    <message>
        <source>&amp;Custom Calibration</source>
        <translation>Eigene Kalibrierung (&amp;C)</translation>
    </message>
    <message>
        <source>Alt+C</source>
        <translation>Alt+C</translation>
    </message>
    <message>
        <source>Calibrate the selected hybrid body</source>
        <translation>Den gewählten Hybridkörper kalibrieren</translation>
    </message>
    <message>
        <source>&amp;Hybrid Body Calibration</source>
        <translation>Hybridkörper &amp;kalibrieren</translation>
    </message>
    <message>
        <source>Adjust the coordinate system of the selected body</source>
        <translation>Das Koordinatensystem des gewählten Körpers anpassen</translation>
    </message>
    <message>
        <source>&amp;Body Adjustment</source>
        <translation>Körper &amp;anpassen</translation>
    </message>
    <message>
        <source>Save changes and close dialog</source>
        <translation>Änderungen speichern und den Dialog schließen</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>Sc&amp;hließen</translation>
    </message>
    <message>
        <source>Reading bodies ...</source>
        <translation>Körper werden gelesen ...</translation>
    </message>
</context>
<context>
    <name>BodySettingsDlg</name>
    <message>
        <source>Body Settings</source>
        <translation>Einstellungen der Körper</translation>
    </message>
    <message>
        <source>Standard bodies</source>
        <translation>Standardkörper</translation>
    </message>
    <message>
        <source>Open fixed angles dialogue</source>
        <translation>Den Dialog der festen Winkel öffnen</translation>
    </message>
    <message>
        <source>&amp;Advanced</source>
        <translation>&amp;Erweitert</translation>
    </message>
    <message>
        <source>Alt+A</source>
        <translation>Alt+E</translation>
    </message>
    <message>
        <source>Accept changes and close dialog</source>
        <translation>Änderungen übernehmen und den Dialog schließen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Discard changes and close dialog</source>
        <translation>Änderungen verwerfen und den Dialog schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>calibrated</source>
        <translation>kalibriert</translation>
    </message>
    <message>
        <source>not calibrated</source>
        <translation>nicht kalibriert</translation>
    </message>
    <message>
        <source>Reading names ...</source>
        <translation>Namen werden gelesen ...</translation>
    </message>
    <message>
        <source>Writing names ...</source>
        <translation>Namen werden geschrieben ...</translation>
    </message>
    <message>
        <source>Names of the standard bodies</source>
        <translation>Namen der Standardkörper</translation>
    </message>
</context>
<context>
    <name>BodyTableInput</name>
    <message>
        <source>Changing bodies ...</source>
        <translation>Körper werden geändert ...</translation>
    </message>
</context>
<context>
    <name>BodyTypeAdministrationTab</name>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Rücksetzen</translation>
    </message>
    <message>
        <source>MORVEK3</source>
        <translation>MORVEK3</translation>
    </message>
    <message>
        <source>Decreasing the number of standard bodies will disable the reference!

Continue?</source>
        <translation>Mit weniger Standardkörpern entfällt die Referenz!

Fortfahren?</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>A de-activated body cannot be set as reference.
Please activate this body before.</source>
        <translation>Ein ausgeschalteter Körper kann nicht Referenz sein.
Bitte schalten Sie ihn zuerst ein.</translation>
    </message>
    <message>
        <source>Unknown reset of %1 %2!</source>
        <translation>Unbekanntes Rücksetzen von %1 %2!</translation>
    </message>
    <message>
        <source>Reset %1 %2
to Target-Library geometry?</source>
        <translation>%1 %2 auf die Geometrie
der Target-Bibliothek zurücksetzen?</translation>
    </message>
    <message>
        <source>Reset of %1 %2 failed!</source>
        <translation>%1 %2 konnte nicht zurückgesetzt werden!</translation>
    </message>
    <message>
        <source>Reset %1 %2
to sensor stored values?</source>
        <translation>%1 %2 auf die im Sensor
gespeicherten Werte zurücksetzen?</translation>
    </message>
    <message>
        <source>Reset %1 %2?
Hand eye calibration will be deleted!</source>
        <translation>%1 %2 zurücksetzen?
Die Hand-Auge-Kalibrierung wird gelöscht!</translation>
    </message>
    <message>
        <source>Reset %1 %2?</source>
        <translation>%1 %2 zurücksetzen?</translation>
    </message>
    <message>
        <source>Delete geometry of %1 %2?
If yes, the assignment as reference to other bodies will be deleted.</source>
        <translation>Die Geometrie von %1 %2 löschen?
Die Zuordnung als Referenz anderer Körper wird dann ebenfalls gelöscht.</translation>
    </message>
    <message>
        <source>Delete assignment of sensor %1 and 
delete geometry of %2 %3?</source>
        <translation>Die Zuordnung des Sensors %1 und
die Geometrie von %2 %3 löschen?</translation>
    </message>
    <message>
        <source>Delete geometry of %1 %2?</source>
        <translation>Die Geometrie von %1 %2 löschen?</translation>
    </message>
    <message>
        <source>Unable to reset filter6d of %1 %2</source>
        <translation>Der 6DOF-Filter von %1 %2 konnte nicht zurückgesetzt werden</translation>
    </message>
    <message>
        <source>Unable to reset sensor of %1 %2</source>
        <translation>Der Sensor von %1 %2 konnte nicht gelöst werden</translation>
    </message>
    <message>
        <source>Unable to reset markers of %1 %2</source>
        <translation>Die Marker von %1 %2 konnten nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Unable to reset description of %1 %2</source>
        <translation>Der Name von %1 %2 konnte nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Delete %1 %2 failed</source>
        <translation>%1 %2 konnte nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Switching %1 %2 and %3 failed!</source>
        <translation>%1 %2 und %3 konnten nicht vertauscht werden!</translation>
    </message>
    <message>
        <source>Overwrite body calibration data of %1?</source>
        <translation>Die Kalibrierung von %1 überschreiben?</translation>
    </message>
    <message>
        <source>%1 targets could be identified in library</source>
        <translation>%1 Targets wurden in der Bibliothek erkannt</translation>
    </message>
    <message>
        <source>No targets could be identified in library</source>
        <translation>Kein Target wurde in der Bibliothek erkannt</translation>
    </message>
    <message>
        <source>One target could be identified in library</source>
        <translation>Ein Target wurde in der Bibliothek erkannt</translation>
    </message>
    <message>
        <source>found targets: %1, already calibrated: %2</source>
        <translation>gefundene Targets: %1, bereits kalibriert: %2</translation>
    </message>
    <message>
        <source>- Found Targets -</source>
        <translation>- Gefundene Targets -</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Short Name</source>
        <translation>Kurzname</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Used</source>
        <translation>Belegt</translation>
    </message>
    <message>
        <source>not calibrated</source>
        <translation>nicht kalibriert</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>Vollständig</translation>
    </message>
    <message>
        <source>Optical</source>
        <translation>Optisch</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigene</translation>
    </message>
    <message>
        <source>Custom, re-calibrated</source>
        <translation>Eigene, neu kalibriert</translation>
    </message>
    <message>
        <source>Target Library</source>
        <translation>Target-Bibliothek</translation>
    </message>
    <message>
        <source>Target Library, re-calibrated</source>
        <translation>Target-Bibliothek, neu kalibriert</translation>
    </message>
    <message>
        <source>not active</source>
        <translation>nicht aktiv</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>custom</source>
        <translation>eigene</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>Referenz</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Changing bodies ...</source>
        <translation>Körper werden geändert ...</translation>
    </message>
    <message>
        <source>Reading targets ...</source>
        <translation>Targets werden gelesen ...</translation>
    </message>
</context>
<context>
    <name>ConfigurationQuestion</name>
    <message>
        <source>The active configuration has changed. Write anyway?</source>
        <translation>Die aktive Konfiguration hat sich geändert. Trotzdem schreiben?</translation>
    </message>
</context>
<context>
    <name>FilterDialog</name>
    <message>
        <source>Filter Settings</source>
        <translation>Filtereinstellungen</translation>
    </message>
    <message>
        <source>6DOF filter settings</source>
        <translation>Einstellungen des 6DOF-Filters</translation>
    </message>
    <message>
        <source>&amp;body</source>
        <translation>&amp;Körper</translation>
    </message>
    <message>
        <source>Select body to adjust the 6DOF filter</source>
        <translation>Den Körper wählen, dessen 6DOF-Filter eingestellt wird</translation>
    </message>
    <message>
        <source>&amp;active</source>
        <translation>&amp;aktiv</translation>
    </message>
    <message>
        <source>&amp;preset</source>
        <translation>&amp;Voreinstellung</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p&gt;Select a 6DOF filter preset, or custom for your own settings.&lt;/p&gt;&lt;p&gt;A preset is a pre-definded set of strength, prediction and mode.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p&gt;Wählen Sie eine Voreinstellung des 6DOF-Filters, oder eine eigene für Ihre Werte.&lt;/p&gt;&lt;p&gt;Eine Voreinstellung legt Stärke, Vorhersage und Modus zusammen fest.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&amp;strength</source>
        <translation>&amp;Stärke</translation>
    </message>
    <message>
        <source>Adjust 6DOF filter strength. Min. = 0.01, max. = 0.99</source>
        <translation>Stärke des 6DOF-Filters, von 0.01 bis 0.99</translation>
    </message>
    <message>
        <source>pre&amp;diction [ms]</source>
        <translation>Vo&amp;rhersage [ms]</translation>
    </message>
    <message>
        <source>&amp;mode</source>
        <translation>&amp;Modus</translation>
    </message>
    <message>
        <source>Adjust 6DOF filter mode</source>
        <translation>Modus des 6DOF-Filters</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Close dialog</source>
        <translation>Den Dialog schließen</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;6DOF filter for standard bodies not available&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Für Standardkörper gibt es keinen 6DOF-Filter&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;6DOF filter for joywands not available&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Für Joywands gibt es keinen 6DOF-Filter&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;6DOF filter not available&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Es gibt keinen 6DOF-Filter&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>standard body %1</source>
        <translation>Standardkörper %1</translation>
    </message>
    <message>
        <source>Joywand body %1</source>
        <translation>Joywand %1</translation>
    </message>
    <message>
        <source>Reading the filter ...</source>
        <translation>Filter wird gelesen ...</translation>
    </message>
    <message>
        <source>Writing the filter ...</source>
        <translation>Filter wird geschrieben ...</translation>
    </message>
    <message>
        <source>Switch the 6DOF filter of the body on or off</source>
        <translation>6DOF-Filter des Körpers ein- oder ausschalten</translation>
    </message>
    <message>
        <source>Adjust how far ahead the filter predicts</source>
        <translation>Einstellen, wie weit der Filter vorhersagt</translation>
    </message>
    <message>
        <source>Explain the filter settings</source>
        <translation>Filtereinstellungen erklären</translation>
    </message>
</context>
<context>
    <name>FilterHelp</name>
    <message>
        <source>Help Filter</source>
        <translation>Hilfe zum Filter</translation>
    </message>
    <message>
        <source>Help for filter settings</source>
        <translation>Hilfe zu den Filtereinstellungen</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;
&lt;h3&gt;6DOF filter&lt;/h3&gt;
&lt;p&gt;The filter smooths position and orientation of a body over time. A preset sets strength, prediction and mode
together. With a custom preset you set them yourself.&lt;/p&gt;
&lt;h4&gt;Strength&lt;/h4&gt;
&lt;ul&gt;
&lt;li&gt;&lt;b&gt;Low values&lt;/b&gt; filter less: the output reacts faster and jitters more.&lt;/li&gt;
&lt;li&gt;&lt;b&gt;High values&lt;/b&gt; filter more: the output is smoother and reacts more slowly.&lt;/li&gt;
&lt;/ul&gt;
&lt;p&gt;Start in the middle of the range. Raise the strength while a body at rest still trembles; lower it when fast movements
lag behind. Hybrid presets have no strength of their own.&lt;/p&gt;
&lt;h4&gt;Prediction&lt;/h4&gt;
&lt;p&gt;The prediction, in milliseconds, moves the output ahead in time to make up for the delay between a movement and its
display. Set it to about the delay of your whole system. Larger values make sudden changes of direction overshoot. With 0 ms nothing
is predicted; a negative value gives an older, calmer pose.&lt;/p&gt;
&lt;h4&gt;Mode&lt;/h4&gt;
&lt;table border=&quot;1&quot; cellspacing=&quot;0&quot; cellpadding=&quot;4&quot;&gt;
&lt;tr&gt;&lt;th align=&quot;left&quot;&gt;Mode&lt;/th&gt;&lt;th align=&quot;left&quot;&gt;Behaviour&lt;/th&gt;&lt;th align=&quot;left&quot;&gt;Use it for&lt;/th&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td&gt;adaptive fast&lt;/td&gt;&lt;td&gt;Filters slow movements and lets fast ones pass almost unfiltered.&lt;/td&gt;
&lt;td&gt;Heads, hands and devices that move quickly, where a delay disturbs most.&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td&gt;adaptive slow&lt;/td&gt;&lt;td&gt;Adapts to the movement as well, but more slowly, so that the output stays calmer.&lt;/td&gt;
&lt;td&gt;Bodies that are moved gently or are looked at closely, where jitter disturbs most.&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td&gt;reference target&lt;/td&gt;&lt;td&gt;Filters very strongly and takes the body as almost at rest.&lt;/td&gt;
&lt;td&gt;Bodies that define the reference for others and hardly ever move.&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td&gt;hybrid target&lt;/td&gt;&lt;td&gt;Combines the optical measurement with the inertial sensor of the body.&lt;/td&gt;
&lt;td&gt;Bodies that carry an inertial sensor; not for others.&lt;/td&gt;&lt;/tr&gt;
&lt;/table&gt;
&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;
&lt;h3&gt;6DOF-Filter&lt;/h3&gt;
&lt;p&gt;Der Filter glättet Position und Orientierung eines Körpers über die Zeit. Eine Voreinstellung legt Stärke, Vorhersage und Modus
zusammen fest. Bei einer eigenen Voreinstellung wählen Sie selbst.&lt;/p&gt;
&lt;h4&gt;Stärke&lt;/h4&gt;
&lt;ul&gt;
&lt;li&gt;&lt;b&gt;Kleine Werte&lt;/b&gt; filtern weniger: Die Ausgabe folgt schneller und zittert mehr.&lt;/li&gt;
&lt;li&gt;&lt;b&gt;Große Werte&lt;/b&gt; filtern mehr: Die Ausgabe ist ruhiger und folgt langsamer.&lt;/li&gt;
&lt;/ul&gt;
&lt;p&gt;Beginnen Sie in der Mitte des Bereichs. Erhöhen Sie die Stärke, solange ein ruhender Körper noch zittert; verringern Sie sie,
wenn schnelle Bewegungen nachhinken. Hybride Voreinstellungen haben keine eigene Stärke.&lt;/p&gt;
&lt;h4&gt;Vorhersage&lt;/h4&gt;
&lt;p&gt;Die Vorhersage, in Millisekunden, verschiebt die Ausgabe in die Zukunft und gleicht so die Verzögerung zwischen einer Bewegung und
ihrer Anzeige aus. Stellen Sie sie etwa auf die Verzögerung Ihrer ganzen Anlage. Größere Werte schießen bei plötzlichen
Richtungswechseln über. Mit 0 ms wird nichts vorhergesagt; ein negativer Wert liefert eine ältere, ruhigere Lage.&lt;/p&gt;
&lt;h4&gt;Modus&lt;/h4&gt;
&lt;table border=&quot;1&quot; cellspacing=&quot;0&quot; cellpadding=&quot;4&quot;&gt;
&lt;tr&gt;&lt;th align=&quot;left&quot;&gt;Modus&lt;/th&gt;&lt;th align=&quot;left&quot;&gt;Verhalten&lt;/th&gt;&lt;th align=&quot;left&quot;&gt;Geeignet für&lt;/th&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td&gt;adaptive fast&lt;/td&gt;&lt;td&gt;Filtert langsame Bewegungen und lässt schnelle fast ungefiltert durch.&lt;/td&gt;
&lt;td&gt;Köpfe, Hände und Geräte, die sich schnell bewegen und bei denen Verzögerung am meisten stört.&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td&gt;adaptive slow&lt;/td&gt;&lt;td&gt;Passt sich der Bewegung ebenfalls an, aber langsamer, so dass die Ausgabe ruhiger bleibt.&lt;/td&gt;
&lt;td&gt;Körper, die sanft bewegt oder aus der Nähe betrachtet werden und bei denen Zittern am meisten stört.&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td&gt;reference target&lt;/td&gt;&lt;td&gt;Filtert sehr stark und nimmt den Körper als fast ruhend an.&lt;/td&gt;
&lt;td&gt;Körper, die anderen als Referenz dienen und sich kaum bewegen.&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td&gt;hybrid target&lt;/td&gt;&lt;td&gt;Verbindet die optische Messung mit dem Inertialsensor des Körpers.&lt;/td&gt;
&lt;td&gt;Körper mit einem Inertialsensor; für andere nicht.&lt;/td&gt;&lt;/tr&gt;
&lt;/table&gt;
&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close dialog</source>
        <translation>Fenster schließen</translation>
    </message>
</context>
<context>
    <name>FingertrackingAdministration</name>
    <message>
        <source>F&amp;ingertracking</source>
        <translation>F&amp;ingertracking</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;Fingertracking is not available!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Fingertracking ist nicht verfügbar!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Rücksetzen</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;Max. number of Hands is reached!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Mehr Hände sind nicht möglich!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
</context>
<context>
    <name>FingertrackingAdministrationClass</name>
    <message>
        <source>Administration of hands</source>
        <translation>Verwaltung der Hände</translation>
    </message>
    <message>
        <source>&amp;number of hands</source>
        <translation>A&amp;nzahl der Hände</translation>
    </message>
    <message>
        <source>Adjust number of hands</source>
        <translation>Die Anzahl der Hände ändern</translation>
    </message>
    <message>
        <source>Number of hands</source>
        <translation>Anzahl der Hände</translation>
    </message>
    <message>
        <source>Available hands</source>
        <translation>Vorhandene Hände</translation>
    </message>
    <message>
        <source>Open custom body calibration</source>
        <translation>Die eigene Kalibrierung öffnen</translation>
    </message>
    <message>
        <source>&amp;Custom calibration</source>
        <translation>&amp;Eigene Kalibrierung</translation>
    </message>
    <message>
        <source>Assign hand target to selected hand</source>
        <translation>Das Hand-Target der gewählten Hand zuordnen</translation>
    </message>
    <message>
        <source>&lt;&lt; S&amp;elect</source>
        <translation>&lt;&lt; &amp;Zuordnen</translation>
    </message>
    <message>
        <source>Remove hand target from selected hand</source>
        <translation>Das Hand-Target von der gewählten Hand lösen</translation>
    </message>
    <message>
        <source>&gt;&gt; &amp;Deselect</source>
        <translation>&gt;&gt; &amp;Lösen</translation>
    </message>
    <message>
        <source>Available hand targets from target library</source>
        <translation>Hand-Targets der Target-Bibliothek</translation>
    </message>
    <message>
        <source>Result of search</source>
        <translation>Ergebnis der Suche</translation>
    </message>
    <message>
        <source>found targets: 0; already calibrated: 0</source>
        <translation>gefundene Targets: 0; bereits kalibriert: 0</translation>
    </message>
    <message>
        <source>Progress of search</source>
        <translation>Fortschritt der Suche</translation>
    </message>
    <message>
        <source>Start search for hand targets in tracking volume</source>
        <translation>Hand-Targets im Messvolumen suchen</translation>
    </message>
    <message>
        <source>S&amp;tart search</source>
        <translation>Suche s&amp;tarten</translation>
    </message>
    <message>
        <source>Stop search</source>
        <translation>Die Suche beenden</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>Sto&amp;pp</translation>
    </message>
    <message>
        <source>Raise the number of hands to add one</source>
        <translation>Anzahl der Hände erhöhen, um eine hinzuzufügen</translation>
    </message>
    <message>
        <source>Start a search to list targets</source>
        <translation>Suche starten, um Targets aufzulisten</translation>
    </message>
</context>
<context>
    <name>FixedAngleDlg</name>
    <message>
        <source>Fixed Angle</source>
        <translation>Feste Winkel</translation>
    </message>
    <message>
        <source>Explain fixed angles</source>
        <translation>Feste Winkel erklären</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Accept changes and close dialog</source>
        <translation>Änderungen übernehmen und den Dialog schließen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Discard changes and close dialog</source>
        <translation>Änderungen verwerfen und den Dialog schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Fixed angles of the standard bodies</source>
        <translation>Feste Winkel der Standardkörper</translation>
    </message>
    <message>
        <source>There is invalid data.</source>
        <translation>Es gibt ungültige Angaben.</translation>
    </message>
    <message>
        <source>The controller refused the fixed angles of %1.</source>
        <extracomment>%1 is a list of body numbers and names, for example &quot;b02 Head, b03 Chair&quot;</extracomment>
        <translation>Der Controller hat die festen Winkel von %1 abgelehnt.</translation>
    </message>
    <message>
        <source>Reading the fixed angles ...</source>
        <translation>Feste Winkel werden gelesen ...</translation>
    </message>
    <message>
        <source>Writing the fixed angles ...</source>
        <translation>Feste Winkel werden geschrieben ...</translation>
    </message>
    <message>
        <source>Adjust the fixed angles of the standard bodies</source>
        <translation>Feste Winkel der Standardkörper einstellen</translation>
    </message>
    <message>
        <source>The fixed angles of %1 could not be read. Set all three angles and boxes to write them.</source>
        <extracomment>%1 is a list of body numbers and names, for example &quot;b02 Head, b03 Chair&quot;</extracomment>
        <translation>Die festen Winkel von %1 konnten nicht gelesen werden. Um sie zu schreiben, alle drei Winkel und Kästchen setzen.</translation>
    </message>
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Help: Fixed Angles</source>
        <translation>Hilfe: Feste Winkel</translation>
    </message>
    <message>
        <source>Help on fixed angles</source>
        <translation>Hilfe zu festen Winkeln</translation>
    </message>
    <message>
        <source>Close this help page</source>
        <translation>Diese Hilfe schließen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>What a fixed angle does</source>
        <translation>Was ein fester Winkel bewirkt</translation>
    </message>
    <message>
        <source>A standard body normally reports the three angles rx, ry and rz that the cameras measure. A fixed angle replaces one of them by a number that stays the same, however the body turns. The other angles and the position are measured as before.</source>
        <translation>Ein Standardkörper meldet sonst die drei Winkel rx, ry und rz, die die Kameras messen. Ein fester Winkel ersetzt einen davon durch eine Zahl, die gleich bleibt, wie sich der Körper auch dreht. Die anderen Winkel und die Position werden weiter gemessen.</translation>
    </message>
    <message>
        <source>How to switch a fixed angle on</source>
        <translation>Wie ein fester Winkel eingeschaltet wird</translation>
    </message>
    <message>
        <source>Tick the box in the column rx, ry or rz of the body. To change the angle, double-click the number, or press F2, and type the angle in degrees with a decimal point. By keyboard the arrow keys choose the cell and the space bar ticks its box. OK sends all rows to the controller, Cancel sends none.</source>
        <translation>Setzen Sie das Häkchen in der Spalte rx, ry oder rz des Körpers. Um den Winkel zu ändern, klicken Sie doppelt auf die Zahl oder drücken F2 und geben den Winkel in Grad mit einem Dezimalpunkt ein. Auf der Tastatur wählen die Pfeiltasten die Zelle, die Leertaste setzt das Häkchen. OK sendet alle Zeilen an den Controller, Abbrechen keine.</translation>
    </message>
    <message>
        <source>Which angles are allowed</source>
        <translation>Welche Winkel erlaubt sind</translation>
    </message>
    <message>
        <source>An angle lies between -20.0 and 20.0 degrees. Whatever else is entered turns into 0.00; angles are kept with two decimals.</source>
        <translation>Ein Winkel liegt zwischen -20.0 und 20.0 Grad. Jede andere Eingabe wird zu 0.00; Winkel haben zwei Nachkommastellen.</translation>
    </message>
    <message>
        <source>Which bodies allow it</source>
        <translation>Welche Körper es erlauben</translation>
    </message>
    <message>
        <source>The body has to be calibrated, and its target has to be a standard target or a cylindrical one of two 5DOF targets. All other bodies are shown in grey.</source>
        <translation>Der Körper muss kalibriert sein, und sein Target muss ein Standard-Target oder ein zylindrisches aus zwei 5DOF-Targets sein. Alle anderen Körper sind grau.</translation>
    </message>
    <message>
        <source>The data display: the marked angle ry of the first body is fixed and keeps its number, while its other angles and its position follow the body.</source>
        <translation>Die Datenanzeige: Der markierte Winkel ry des ersten Körpers ist fest und behält seine Zahl, während seine anderen Winkel und seine Position dem Körper folgen.</translation>
    </message>
    <message>
        <source>The body table: a ticked angle is fixed to the number beside it, a grey row cannot be changed.</source>
        <translation>Die Körpertabelle: Ein angehakter Winkel ist auf die Zahl daneben festgelegt, eine graue Zeile lässt sich nicht ändern.</translation>
    </message>
    <message>
        <source>Close dialog</source>
        <translation>Fenster schließen</translation>
    </message>
</context>
<context>
    <name>JoywandAdministration</name>
    <message>
        <source>Administration of Joywands</source>
        <translation>Verwaltung der Joywands</translation>
    </message>
    <message>
        <source>&amp;Joywand</source>
        <translation>&amp;Joywand</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Rücksetzen</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;Max. number of joywands is reached!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Mehr Joywands sind nicht möglich!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keines</translation>
    </message>
</context>
<context>
    <name>JoywandAdministrationClass</name>
    <message>
        <source>&amp;number of joywands</source>
        <translation>A&amp;nzahl der Joywands</translation>
    </message>
    <message>
        <source>Adjust number of joywands</source>
        <translation>Die Anzahl der Joywands ändern</translation>
    </message>
    <message>
        <source>Number of joywands</source>
        <translation>Anzahl der Joywands</translation>
    </message>
    <message>
        <source>Available joywands</source>
        <translation>Vorhandene Joywands</translation>
    </message>
    <message>
        <source>Open filter dialog</source>
        <translation>Den Filterdialog öffnen</translation>
    </message>
    <message>
        <source>Fi&amp;lter</source>
        <translation>&amp;Filter</translation>
    </message>
    <message>
        <source>Open custom body calibration</source>
        <translation>Die eigene Kalibrierung öffnen</translation>
    </message>
    <message>
        <source>&amp;Custom calibration</source>
        <translation>&amp;Eigene Kalibrierung</translation>
    </message>
    <message>
        <source>MultiUser head target:</source>
        <translation>Kopf-Target für mehrere Benutzer:</translation>
    </message>
    <message>
        <source>Available joywand MultiUser head targets</source>
        <translation>Kopf-Targets für mehrere Benutzer</translation>
    </message>
    <message>
        <source>Assign joywand target to selected joywand</source>
        <translation>Das Target dem gewählten Joywand zuordnen</translation>
    </message>
    <message>
        <source>&lt;&lt; S&amp;elect</source>
        <translation>&lt;&lt; &amp;Zuordnen</translation>
    </message>
    <message>
        <source>Remove joywand target from selected joywand</source>
        <translation>Das Target vom gewählten Joywand lösen</translation>
    </message>
    <message>
        <source>&gt;&gt; &amp;Deselect</source>
        <translation>&gt;&gt; &amp;Lösen</translation>
    </message>
    <message>
        <source>Available joywand targets from target library</source>
        <translation>Joywand-Targets der Target-Bibliothek</translation>
    </message>
    <message>
        <source>Result of search</source>
        <translation>Ergebnis der Suche</translation>
    </message>
    <message>
        <source>found targets: 0; already calibrated: 0</source>
        <translation>gefundene Targets: 0; bereits kalibriert: 0</translation>
    </message>
    <message>
        <source>Progress of search</source>
        <translation>Fortschritt der Suche</translation>
    </message>
    <message>
        <source>Start search for joywand targets in tracking volume</source>
        <translation>Joywand-Targets im Messvolumen suchen</translation>
    </message>
    <message>
        <source>S&amp;tart search</source>
        <translation>Suche s&amp;tarten</translation>
    </message>
    <message>
        <source>Stop search</source>
        <translation>Die Suche beenden</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>Sto&amp;pp</translation>
    </message>
    <message>
        <source>Raise the number of joywands to add one</source>
        <translation>Anzahl der Joywands erhöhen, um einen hinzuzufügen</translation>
    </message>
    <message>
        <source>Start a search to list targets</source>
        <translation>Suche starten, um Targets aufzulisten</translation>
    </message>
</context>
<context>
    <name>MessageLine</name>
    <message>
        <source>Unable to move bodies: this controller is too old for it</source>
        <translation>Körper lassen sich nicht verschieben: diese Steuerung ist zu alt dafür</translation>
    </message>
    <message>
        <source>The bodies have changed meanwhile. Nothing was sent.</source>
        <translation>Die Körper haben sich inzwischen geändert. Es wurde nichts gesendet.</translation>
    </message>
    <message>
        <source>Unable to close dialog during calibration is running</source>
        <translation>Das Fenster kann während einer laufenden Kalibrierung nicht geschlossen werden</translation>
    </message>
    <message>
        <source>The configuration is locked</source>
        <translation>Die Konfiguration ist gesperrt</translation>
    </message>
    <message>
        <source>What went wrong last, or what is waited for</source>
        <translation>Was zuletzt misslang oder worauf gewartet wird</translation>
    </message>
</context>
<context>
    <name>MtAdministration</name>
    <message>
        <source>Administration of Measurement Tools</source>
        <translation>Verwaltung der Messwerkzeuge</translation>
    </message>
    <message>
        <source>&amp;Measurement Tool</source>
        <translation>&amp;Messwerkzeug</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Reference ID</source>
        <translation>Referenz-ID</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Rücksetzen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;Measurement Tool is not available!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Messwerkzeuge sind nicht verfügbar!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;Max. number of Measurement Tools is reached!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Mehr Messwerkzeuge sind nicht möglich!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;Max. number of Measurement references is reached!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Mehr Referenzen sind nicht möglich!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>After deactivating the reference,
the corresponding Measurement Tool will not be tracked.</source>
        <translation>Ohne diese Referenz wird
das zugehörige Messwerkzeug nicht verfolgt.</translation>
    </message>
    <message>
        <source>Continue?</source>
        <translation>Fortfahren?</translation>
    </message>
    <message>
        <source>Delete Measurement Tool reference body %1?</source>
        <translation>Die Referenz %1 löschen?</translation>
    </message>
    <message>
        <source>Delete Measurement Tool reference body %1?
If yes, the assignment to the Measurement Tool will be deleted.</source>
        <translation>Die Referenz %1 löschen?
Die Zuordnung zum Messwerkzeug wird dann ebenfalls gelöscht.</translation>
    </message>
    <message>
        <source>Delete body %1 failed</source>
        <translation>Der Körper %1 konnte nicht gelöscht werden</translation>
    </message>
    <message>
        <source>This target is already calibrated as standard target ID %1.</source>
        <translation>Dieses Target ist bereits als Standardkörper %1 kalibriert.</translation>
    </message>
    <message>
        <source>Delete the standard target ID %1?</source>
        <translation>Den Standardkörper %1 löschen?</translation>
    </message>
</context>
<context>
    <name>MtAdministrationClass</name>
    <message>
        <source>Measurement Tool is not available!</source>
        <translation>Messwerkzeuge sind nicht verfügbar!</translation>
    </message>
    <message>
        <source>&amp;number of Measurement Tools</source>
        <translation>A&amp;nzahl der Messwerkzeuge</translation>
    </message>
    <message>
        <source>Adjust number of Measurement Tools</source>
        <translation>Die Anzahl der Messwerkzeuge ändern</translation>
    </message>
    <message>
        <source>Number of Measurement Tools</source>
        <translation>Anzahl der Messwerkzeuge</translation>
    </message>
    <message>
        <source>Available Measurement Tools</source>
        <translation>Vorhandene Messwerkzeuge</translation>
    </message>
    <message>
        <source>number of &amp;references</source>
        <translation>Anzahl der &amp;Referenzen</translation>
    </message>
    <message>
        <source>Adjust number of Measurement Tool references</source>
        <translation>Die Anzahl der Referenzen ändern</translation>
    </message>
    <message>
        <source>Number of references</source>
        <translation>Anzahl der Referenzen</translation>
    </message>
    <message>
        <source>Available Measurement Tool references</source>
        <translation>Vorhandene Referenzen</translation>
    </message>
    <message>
        <source>Assign target from targetlibrary to selected Measurement Tool reference</source>
        <translation>Das Target der gewählten Referenz zuordnen</translation>
    </message>
    <message>
        <source>&lt;&lt; S&amp;elect</source>
        <translation>&lt;&lt; &amp;Zuordnen</translation>
    </message>
    <message>
        <source>Remove target from selected Measurement Tool reference</source>
        <translation>Das Target von der gewählten Referenz lösen</translation>
    </message>
    <message>
        <source>&gt;&gt; &amp;Deselect</source>
        <translation>&gt;&gt; &amp;Lösen</translation>
    </message>
    <message>
        <source>c&amp;ategory</source>
        <translation>Kate&amp;gorie</translation>
    </message>
    <message>
        <source>Filter target groups</source>
        <translation>Nach Gruppen von Targets filtern</translation>
    </message>
    <message>
        <source>Category of targets</source>
        <translation>Kategorie der Targets</translation>
    </message>
    <message>
        <source>Available targets from target library</source>
        <translation>Targets der Target-Bibliothek</translation>
    </message>
    <message>
        <source>Result of search</source>
        <translation>Ergebnis der Suche</translation>
    </message>
    <message>
        <source>found targets: 0; already calibrated: 0</source>
        <translation>gefundene Targets: 0; bereits kalibriert: 0</translation>
    </message>
    <message>
        <source>Progress of search</source>
        <translation>Fortschritt der Suche</translation>
    </message>
    <message>
        <source>Search targets in the tracking volume</source>
        <translation>Targets im Messvolumen suchen</translation>
    </message>
    <message>
        <source>S&amp;tart search</source>
        <translation>Suche s&amp;tarten</translation>
    </message>
    <message>
        <source>Stop search</source>
        <translation>Die Suche beenden</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>Sto&amp;pp</translation>
    </message>
    <message>
        <source>Raise the number of Measurement Tools to add one</source>
        <translation>Anzahl der Messwerkzeuge erhöhen, um eines hinzuzufügen</translation>
    </message>
    <message>
        <source>Raise the number of references to add one</source>
        <translation>Anzahl der Referenzen erhöhen, um eine hinzuzufügen</translation>
    </message>
    <message>
        <source>Start a search to list targets</source>
        <translation>Suche starten, um Targets aufzulisten</translation>
    </message>
</context>
<context>
    <name>StandardAdministration</name>
    <message>
        <source>Administration of standard bodies</source>
        <translation>Verwaltung der Standardkörper</translation>
    </message>
    <message>
        <source>&amp;Standard</source>
        <translation>&amp;Standard</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>Referenz</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Device ID</source>
        <translation>Geräte-ID</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Rücksetzen</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;Max. number of bodies is reached!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Mehr Körper sind nicht möglich!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>After deactivating the reference target,
all targets will not be tracked.</source>
        <translation>Ohne die Referenz
wird kein Target verfolgt.</translation>
    </message>
    <message>
        <source>Continue?</source>
        <translation>Fortfahren?</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>This target is already calibrated as Measurement Tool Reference MR%1.</source>
        <translation>Dieses Target ist bereits als Referenz MR%1 eines Messwerkzeugs kalibriert.</translation>
    </message>
    <message>
        <source>Delete the Measurement Tool Reference MR%1?</source>
        <translation>Die Referenz MR%1 löschen?</translation>
    </message>
    <message>
        <source>%1 can bend
therefore a re-calibration is strongly recommended!</source>
        <translation>%1 kann sich verbiegen,
eine neue Kalibrierung wird dringend empfohlen!</translation>
    </message>
    <message>
        <source>

(To avoid any changes of the geometry,
mount the target to the device prior to re-calibration)</source>
        <translation>

(Damit sich die Geometrie nicht ändert,
befestigen Sie das Target vor der Kalibrierung am Gerät)</translation>
    </message>
    <message>
        <source>Changing bodies ...</source>
        <translation>Körper werden geändert ...</translation>
    </message>
</context>
<context>
    <name>StandardAdministrationClass</name>
    <message>
        <source>&amp;number of bodies</source>
        <translation>A&amp;nzahl der Körper</translation>
    </message>
    <message>
        <source>Adjust number of standard bodies</source>
        <translation>Die Anzahl der Standardkörper ändern</translation>
    </message>
    <message>
        <source>Number of bodies</source>
        <translation>Anzahl der Körper</translation>
    </message>
    <message>
        <source>Move the selected body one position up</source>
        <translation>Den gewählten Körper eine Zeile nach oben rücken</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move the selected body one position down</source>
        <translation>Den gewählten Körper eine Zeile nach unten rücken</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Available standard bodies</source>
        <translation>Vorhandene Standardkörper</translation>
    </message>
    <message>
        <source>Open filter dialog</source>
        <translation>Den Filterdialog öffnen</translation>
    </message>
    <message>
        <source>Fi&amp;lter</source>
        <translation>&amp;Filter</translation>
    </message>
    <message>
        <source>Open custom body calibration</source>
        <translation>Die eigene Kalibrierung öffnen</translation>
    </message>
    <message>
        <source>&amp;Custom calibration</source>
        <translation>&amp;Eigene Kalibrierung</translation>
    </message>
    <message>
        <source>Assing target from target library to selected body</source>
        <translation>Das Target dem gewählten Körper zuordnen</translation>
    </message>
    <message>
        <source>&lt;&lt; S&amp;elect</source>
        <translation>&lt;&lt; &amp;Zuordnen</translation>
    </message>
    <message>
        <source>Remove target from selected body</source>
        <translation>Das Target vom gewählten Körper lösen</translation>
    </message>
    <message>
        <source>&gt;&gt; &amp;Deselect</source>
        <translation>&gt;&gt; &amp;Lösen</translation>
    </message>
    <message>
        <source>c&amp;ategory</source>
        <translation>Kate&amp;gorie</translation>
    </message>
    <message>
        <source>Filter target groups</source>
        <translation>Nach Gruppen von Targets filtern</translation>
    </message>
    <message>
        <source>Category of targets</source>
        <translation>Kategorie der Targets</translation>
    </message>
    <message>
        <source>Available targets from target library</source>
        <translation>Targets der Target-Bibliothek</translation>
    </message>
    <message>
        <source>Result of search</source>
        <translation>Ergebnis der Suche</translation>
    </message>
    <message>
        <source>found targets: 0; already calibrated: 0</source>
        <translation>gefundene Targets: 0; bereits kalibriert: 0</translation>
    </message>
    <message>
        <source>Progress of search</source>
        <translation>Fortschritt der Suche</translation>
    </message>
    <message>
        <source>Serach for targets in the tracking volume</source>
        <translation>Targets im Messvolumen suchen</translation>
    </message>
    <message>
        <source>S&amp;tart search</source>
        <translation>Suche s&amp;tarten</translation>
    </message>
    <message>
        <source>Stop search</source>
        <translation>Die Suche beenden</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>Sto&amp;pp</translation>
    </message>
    <message>
        <source>Raise the number of bodies to add one</source>
        <translation>Anzahl der Körper erhöhen, um einen hinzuzufügen</translation>
    </message>
    <message>
        <source>Start a search to list targets</source>
        <translation>Suche starten, um Targets aufzulisten</translation>
    </message>
</context>
<context>
    <name>TrackingDialog</name>
    <message>
        <source>Single Markers Settings</source>
        <translation>Einstellungen der Einzelmarker</translation>
    </message>
    <message>
        <source>Adjust single marker settings</source>
        <translation>Die Einstellungen der Einzelmarker ändern</translation>
    </message>
    <message>
        <source>Check calculation of 3DOF markers if needed</source>
        <translation>Ankreuzen, wenn 3DOF-Marker berechnet werden sollen</translation>
    </message>
    <message>
        <source>&amp;calculation of 3DOF markers</source>
        <translation>3DOF-Marker bere&amp;chnen</translation>
    </message>
    <message>
        <source>Check automatic restart of measurement after loss of sync signal if needed</source>
        <translation>Ankreuzen, wenn die Messung nach einem Ausfall des Sync-Signals von selbst neu starten soll</translation>
    </message>
    <message>
        <source>automatic &amp;restart of measurement after loss of sync signal</source>
        <translation>Messung nach Ausfall des Sync-Signals von selbst neu sta&amp;rten</translation>
    </message>
    <message>
        <source>axis &amp;5DOF central</source>
        <translation>Achse der &amp;5DOF-Körper</translation>
    </message>
    <message>
        <source>Define which axis of the room coordinate system is up for the 5DOF body</source>
        <translation>Welche Achse des Raumkoordinatensystems für die 5DOF-Körper nach oben zeigt</translation>
    </message>
    <message>
        <source>Axis of the 5DOF bodies</source>
        <translation>Achse der 5DOF-Körper</translation>
    </message>
    <message>
        <source>Axis in use</source>
        <translation>Geltende Achse</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;b&gt;Tracking frequency with inertial sensors&lt;/b&gt;&lt;/p&gt;&lt;p&gt;&lt;b&gt;As the cameras:&lt;/b&gt; bodies with an inertial sensor are tracked with the frequency of the cameras, which the Synccard settings determine.&lt;/p&gt;&lt;p&gt;&lt;b&gt;As an inertial sensor:&lt;/b&gt; the tracking frequency follows the chosen inertial sensor, which is faster than the cameras.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Custom frequency:&lt;/b&gt; the tracking frequency is the number entered here, whatever the cameras and the sensors do.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;b&gt;Messfrequenz mit Inertialsensoren&lt;/b&gt;&lt;/p&gt;&lt;p&gt;&lt;b&gt;Wie die Kameras:&lt;/b&gt; Körper mit einem Inertialsensor werden mit der Frequenz der Kameras verfolgt, die die Einstellungen der Synccard bestimmen.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Wie ein Inertialsensor:&lt;/b&gt; Die Messfrequenz folgt dem gewählten Inertialsensor, der schneller ist als die Kameras.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Eigene Frequenz:&lt;/b&gt; Die Messfrequenz ist die hier eingegebene Zahl, was immer die Kameras und die Sensoren tun.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>tracking frequency</source>
        <translation>Messfrequenz</translation>
    </message>
    <message>
        <source>&amp;as QOR cameras (see Synccard settings)</source>
        <translation>wie die QOR-K&amp;ameras (siehe Synccard-Einstellungen)</translation>
    </message>
    <message>
        <source>as &amp;inertial sensor</source>
        <translation>wie der &amp;Inertialsensor</translation>
    </message>
    <message>
        <source>Inertial sensor</source>
        <translation>Inertialsensor</translation>
    </message>
    <message>
        <source>custom &amp;frequency (independent of cameras or sensors)</source>
        <translation>eigene &amp;Frequenz (unabhängig von Kameras und Sensoren)</translation>
    </message>
    <message>
        <source>Custom tracking frequency</source>
        <translation>Eigene Messfrequenz</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>&amp;Advanced</source>
        <translation>&amp;Erweitert</translation>
    </message>
    <message>
        <source>Accept changes and close dialog</source>
        <translation>Änderungen übernehmen und den Dialog schließen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Discard changes and close dialog</source>
        <translation>Änderungen verwerfen und den Dialog schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Open the fixed angles of the standard bodies</source>
        <translation>Feste Winkel der Standardkörper öffnen</translation>
    </message>
    <message>
        <source>Track bodies with an inertial sensor with the frequency of the cameras</source>
        <translation>Körper mit Inertialsensor mit der Frequenz der Kameras verfolgen</translation>
    </message>
    <message>
        <source>Track with the frequency of an inertial sensor</source>
        <translation>Mit der Frequenz eines Inertialsensors verfolgen</translation>
    </message>
    <message>
        <source>Track with a frequency of your own</source>
        <translation>Mit einer eigenen Frequenz verfolgen</translation>
    </message>
    <message>
        <source>Adjust the tracking frequency</source>
        <translation>Trackingfrequenz einstellen</translation>
    </message>
    <message>
        <source>Select the inertial sensor that gives the frequency</source>
        <translation>Inertialsensor wählen, der die Frequenz vorgibt</translation>
    </message>
</context>
<context>
    <name>TrackingDlg</name>
    <message>
        <source>x = %1 mm, y = %2 mm, z = %3 mm</source>
        <translation>x = %1 mm, y = %2 mm, z = %3 mm</translation>
    </message>
    <message>
        <source>Single Markers</source>
        <translation>Einzelmarker</translation>
    </message>
    <message>
        <source>Reading the settings ...</source>
        <translation>Einstellungen werden gelesen ...</translation>
    </message>
    <message>
        <source>Writing the settings ...</source>
        <translation>Einstellungen werden geschrieben ...</translation>
    </message>
</context>
<context>
    <name>TrackingSettingBodyAdminModule</name>
    <message>
        <source>GUI Settings Tracking</source>
        <translation>Einstellungen Tracking</translation>
    </message>
    <message>
        <source>&amp;Tracking</source>
        <translation>&amp;Tracking</translation>
    </message>
    <message>
        <source>&amp;Single markers</source>
        <translation>&amp;Einzelmarker</translation>
    </message>
    <message>
        <source>Change settings of the 6DOF standard bodies and the 3DOF markers and body administration</source>
        <translation>Einstellungen der 6DOF-Standardkörper, der 3DOF-Marker und der Körperverwaltung ändern</translation>
    </message>
    <message>
        <source>&amp;Body administration</source>
        <translation>&amp;Körperverwaltung</translation>
    </message>
    <message>
        <source>F8</source>
        <extracomment>Key that opens the body administration, as QKeySequence reads it.</extracomment>
        <translation>F8</translation>
    </message>
    <message>
        <source>Settings of all bodies</source>
        <translation>Einstellungen aller Körper</translation>
    </message>
</context>
<context>
    <name>Waiting</name>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1, %2 von %3</translation>
    </message>
</context>
</TS>
