<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Workbench::AboutCommand</name>
    <message>
        <source>&amp;About Workbench</source>
        <translation>Ü&amp;ber Workbench</translation>
    </message>
    <message>
        <source>What program this is</source>
        <translation>Was für ein Programm das ist</translation>
    </message>
    <message>
        <source>Tells what program this is and what it is made of.</source>
        <translation>Zeigt, was für ein Programm das ist und woraus es besteht.</translation>
    </message>
</context>
<context>
    <name>Workbench::AboutDialog</name>
    <message>
        <source>&lt;p&gt;The workbench opens a mesh, shows it and changes it. It is the example that comes with lumo_ui_base: each thing that it does is a command, a tool, a view or a popup of that library.&lt;/p&gt;&lt;p&gt;Meshes are read by assimp, work in the background runs on oneTBB, and everything that is seen stands on Qt %1.&lt;/p&gt;&lt;p&gt;It may be used and copied under the terms of the MIT license.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Die Workbench öffnet ein Netz, zeigt es und verändert es. Sie ist das Beispiel zu lumo_ui_base: Alles, was sie tut, ist ein Befehl, ein Werkzeug, eine Ansicht oder ein Aufklappfenster dieser Bibliothek.&lt;/p&gt;&lt;p&gt;Netze liest assimp, die Arbeit im Hintergrund läuft auf oneTBB, und alles Sichtbare beruht auf Qt %1.&lt;/p&gt;&lt;p&gt;Sie darf unter den Bedingungen der MIT-Lizenz benutzt und kopiert werden.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>About Workbench</source>
        <translation>Über Workbench</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>The example that comes with lumo_ui_base.</source>
        <translation>Das Beispiel zu lumo_ui_base.</translation>
    </message>
</context>
<context>
    <name>Workbench::AppManager</name>
    <message>
        <source>Workbench</source>
        <translation>Workbench</translation>
    </message>
    <message>
        <source>How the surface is drawn</source>
        <translation>Wie die Oberfläche dargestellt wird</translation>
    </message>
    <message>
        <source>Ne&amp;xt Display Mode</source>
        <translation>Nä&amp;chste Darstellung</translation>
    </message>
</context>
<context>
    <name>Workbench::AttributeCommand</name>
    <message>
        <source>&amp;Normals</source>
        <translation>&amp;Normalen</translation>
    </message>
    <message>
        <source>Draw the normal of each vertex</source>
        <translation>Die Normale jedes Eckpunkts zeichnen</translation>
    </message>
    <message>
        <source>Draws a line along the normal of each vertex. Lines that point inwards tell of faces that are turned the wrong way.</source>
        <translation>Zeichnet eine Linie entlang der Normale jedes Eckpunkts. Linien, die nach innen zeigen, verraten falsch herum liegende Flächen.</translation>
    </message>
    <message>
        <source>&amp;Bounding Box</source>
        <translation>&amp;Hüllquader</translation>
    </message>
    <message>
        <source>Draw a box around the mesh</source>
        <translation>Einen Quader um das Netz zeichnen</translation>
    </message>
    <message>
        <source>Draws the smallest box along the axes that holds the mesh.</source>
        <translation>Zeichnet den kleinsten Quader entlang der Achsen, der das Netz enthält.</translation>
    </message>
    <message>
        <source>&amp;Axes</source>
        <translation>&amp;Achsen</translation>
    </message>
    <message>
        <source>Draw the directions of the coordinates</source>
        <translation>Die Richtungen der Koordinaten zeichnen</translation>
    </message>
    <message>
        <source>Draws the directions in which x, y and z grow in a corner of the view.</source>
        <translation>Zeichnet in einer Ecke der Ansicht die Richtungen, in denen x, y und z wachsen.</translation>
    </message>
    <message>
        <source>&amp;Edges</source>
        <translation>&amp;Kanten</translation>
    </message>
    <message>
        <source>Draw the edges on the surface</source>
        <translation>Die Kanten auf der Oberfläche zeichnen</translation>
    </message>
    <message>
        <source>Draws the edges of all faces over the surface, in any display mode.</source>
        <translation>Zeichnet die Kanten aller Flächen über die Oberfläche, in jeder Darstellung.</translation>
    </message>
</context>
<context>
    <name>Workbench::BackgroundCommand</name>
    <message>
        <source>%1 was stopped.</source>
        <translation>%1 wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>Workbench::BarsCommand</name>
    <message>
        <source>Tool &amp;Bars</source>
        <translation>&amp;Werkzeugleisten</translation>
    </message>
    <message>
        <source>Show the bars around the view</source>
        <translation>Die Leisten um die Ansicht zeigen</translation>
    </message>
</context>
<context>
    <name>Workbench::ChangesQuestion</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>%1 was changed.</source>
        <translation>%1 wurde geändert.</translation>
    </message>
    <message>
        <source>The changes are lost unless they are saved.</source>
        <translation>Die Änderungen gehen verloren, wenn sie nicht gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>Workbench::CommandCard</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>Workbench::CompareCommand</name>
    <message>
        <source>&amp;Compare with File</source>
        <translation>Mit Datei &amp;vergleichen</translation>
    </message>
    <message>
        <source>Show the mesh of the file beside the present one</source>
        <translation>Das Netz der Datei neben dem jetzigen zeigen</translation>
    </message>
    <message>
        <source>Shows the mesh as the file has it beside the changed one. Both turn together.</source>
        <translation>Zeigt das Netz, wie es in der Datei steht, neben dem veränderten. Beide drehen sich gemeinsam.</translation>
    </message>
</context>
<context>
    <name>Workbench::ComparePanel</name>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Nachher</translation>
    </message>
    <message>
        <source>Close the comparison</source>
        <translation>Vergleich schließen</translation>
    </message>
</context>
<context>
    <name>Workbench::DecimateFlyout</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Largest error</source>
        <translation>Größter Fehler</translation>
    </message>
    <message>
        <source>Leave the rim alone</source>
        <translation>Rand nicht verändern</translation>
    </message>
    <message>
        <source>Decimate</source>
        <translation>Dezimieren</translation>
    </message>
    <message>
        <source>Make do with fewer faces</source>
        <translation>Mit weniger Flächen auskommen</translation>
    </message>
    <message>
        <source>Opens a panel that tells how many of the faces to keep. The shape stays nearly the same: it is left with more faces rather than moved too far.</source>
        <translation>Öffnet ein Feld, in dem steht, wie viele der Flächen bleiben. Die Form bleibt nahezu gleich: Lieber behält sie mehr Flächen, als dass sie sich zu weit verschiebt.</translation>
    </message>
    <message>
        <source>Taking faces away</source>
        <translation>Flächen werden entfernt</translation>
    </message>
</context>
<context>
    <name>Workbench::Dialog</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Workbench::DisplayModeCommand</name>
    <message>
        <source>&amp;Flat</source>
        <translation>&amp;Flach</translation>
    </message>
    <message>
        <source>Draw each face as it is</source>
        <translation>Jede Fläche so zeichnen, wie sie ist</translation>
    </message>
    <message>
        <source>Gives each face one shade, so that its size and direction can be seen.</source>
        <translation>Gibt jeder Fläche einen einzigen Farbton, sodass ihre Größe und Richtung zu sehen sind.</translation>
    </message>
    <message>
        <source>&amp;Wireframe</source>
        <translation>&amp;Drahtgitter</translation>
    </message>
    <message>
        <source>Draw the edges alone</source>
        <translation>Nur die Kanten zeichnen</translation>
    </message>
    <message>
        <source>Draws the edges and leaves the faces out. What lies behind is seen, too.</source>
        <translation>Zeichnet die Kanten und lässt die Flächen weg. Auch was dahinter liegt, ist zu sehen.</translation>
    </message>
    <message>
        <source>&amp;Points</source>
        <translation>&amp;Punkte</translation>
    </message>
    <message>
        <source>Draw the vertices alone</source>
        <translation>Nur die Eckpunkte zeichnen</translation>
    </message>
    <message>
        <source>Draws a point for each vertex and leaves the faces out.</source>
        <translation>Zeichnet für jeden Eckpunkt einen Punkt und lässt die Flächen weg.</translation>
    </message>
    <message>
        <source>&amp;Shaded</source>
        <translation>&amp;Schattiert</translation>
    </message>
    <message>
        <source>Draw a smooth surface</source>
        <translation>Eine glatte Oberfläche zeichnen</translation>
    </message>
    <message>
        <source>Draws the surface as if it were smooth: the light changes from vertex to vertex.</source>
        <translation>Zeichnet die Oberfläche, als wäre sie glatt: Das Licht ändert sich von Eckpunkt zu Eckpunkt.</translation>
    </message>
</context>
<context>
    <name>Workbench::FlipNormalsCommand</name>
    <message>
        <source>&amp;Flip Normals</source>
        <translation>&amp;Normalen umkehren</translation>
    </message>
    <message>
        <source>Turn the surface inside out</source>
        <translation>Das Innere der Oberfläche nach außen kehren</translation>
    </message>
    <message>
        <source>Turns all faces round, so that the inside becomes the outside. For meshes that come with their faces the wrong way.</source>
        <translation>Dreht alle Flächen um, sodass innen zu außen wird. Für Netze, deren Flächen falsch herum liegen.</translation>
    </message>
</context>
<context>
    <name>Workbench::ImagePage</name>
    <message>
        <source>Close the image (Esc)</source>
        <translation>Bild schließen (Esc)</translation>
    </message>
    <message>
        <source>Image %1</source>
        <translation>Bild %1</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>Workbench::ImageReader</name>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>das ist ein Ordner</translation>
    </message>
    <message>
        <source>you are not allowed to read it</source>
        <translation>Sie dürfen sie nicht lesen</translation>
    </message>
    <message>
        <source>it is empty</source>
        <translation>sie ist leer</translation>
    </message>
    <message>
        <source>%1 could not be read: %2.</source>
        <translation>%1 konnte nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>its contents are no image of a kind that is known here</source>
        <translation>ihr Inhalt ist kein Bild einer hier bekannten Art</translation>
    </message>
    <message>
        <source>its %1 x %2 pixels are too many</source>
        <translation>%1 x %2 Pixel sind zu viele</translation>
    </message>
    <message>
        <source>its contents are damaged</source>
        <translation>ihr Inhalt ist beschädigt</translation>
    </message>
</context>
<context>
    <name>Workbench::LogCommand</name>
    <message>
        <source>&amp;Log</source>
        <translation>&amp;Protokoll</translation>
    </message>
    <message>
        <source>What the program has said</source>
        <translation>Was das Programm gemeldet hat</translation>
    </message>
    <message>
        <source>Lists the beginning and the end of every command, the problems, and what else the program has said since it began.</source>
        <translation>Listet Anfang und Ende jedes Befehls, die Probleme und was das Programm sonst seit seinem Start gemeldet hat.</translation>
    </message>
</context>
<context>
    <name>Workbench::LogDialog</name>
    <message>
        <source>Lines of the log</source>
        <translation>Zeilen des Protokolls</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
</context>
<context>
    <name>Workbench::MainMenu</name>
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
        <source>&amp;Tools</source>
        <translation>&amp;Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Recent Files</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>&amp;Clear This List</source>
        <translation>Diese Liste &amp;leeren</translation>
    </message>
</context>
<context>
    <name>Workbench::MainWindow</name>
    <message>
        <source>S&amp;tatus Line</source>
        <translation>&amp;Statuszeile</translation>
    </message>
    <message>
        <source>Open a mesh</source>
        <translation>Netz öffnen</translation>
    </message>
    <message>
        <source>Meshes (%1);;All files (*)</source>
        <translation>Netze (%1);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save the mesh</source>
        <translation>Netz speichern</translation>
    </message>
    <message>
        <source>OBJ meshes (*.obj)</source>
        <translation>OBJ-Netze (*.obj)</translation>
    </message>
    <message>
        <source>Open an image</source>
        <translation>Bild öffnen</translation>
    </message>
    <message>
        <source>Images (%1);;All files (*)</source>
        <translation>Bilder (%1);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1[*] - %2</source>
        <translation>%1[*] - %2</translation>
    </message>
</context>
<context>
    <name>Workbench::MeasureFlyout</name>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Flächeninhalt</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>Ausgewählt</translation>
    </message>
    <message>
        <source>Measure</source>
        <translation>Messen</translation>
    </message>
    <message>
        <source>Tell the sizes of the mesh</source>
        <translation>Die Maße des Netzes angeben</translation>
    </message>
    <message>
        <source>Opens a panel with the size, the area and the volume of the mesh, in the units of its file, and with the area of the faces that are selected.</source>
        <translation>Öffnet ein Feld mit Größe, Flächeninhalt und Volumen des Netzes, in den Einheiten seiner Datei, und mit dem Inhalt der ausgewählten Flächen.</translation>
    </message>
    <message>
        <source>%1 × %2 × %3</source>
        <translation>%1 × %2 × %3</translation>
    </message>
    <message>
        <source>faces: %1, area: %2</source>
        <translation>Flächen: %1, Inhalt: %2</translation>
    </message>
    <message>
        <source>Figures of the faces</source>
        <translation>Kennzahlen der Flächen</translation>
    </message>
    <message>
        <source>Faces</source>
        <translation>Flächen</translation>
    </message>
    <message>
        <source>Shortest edge</source>
        <translation>Kürzeste Kante</translation>
    </message>
    <message>
        <source>Longest edge</source>
        <translation>Längste Kante</translation>
    </message>
    <message>
        <source>Mean edge</source>
        <translation>Mittlere Kante</translation>
    </message>
    <message>
        <source>Sharpest corner</source>
        <translation>Spitzeste Ecke</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshCommand</name>
    <message>
        <source>There is not enough memory for &quot;%1&quot;.</source>
        <translation>Für „%1“ reicht der Speicher nicht.</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshPanelCommand</name>
    <message>
        <source>There is not enough memory for &quot;%1&quot;.</source>
        <translation>Für „%1“ reicht der Speicher nicht.</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshReader</name>
    <message>
        <source>%1 could not be read: %2.</source>
        <translation>%1 konnte nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>das ist ein Ordner</translation>
    </message>
    <message>
        <source>you are not allowed to read it</source>
        <translation>Sie dürfen sie nicht lesen</translation>
    </message>
    <message>
        <source>it is empty</source>
        <translation>sie ist leer</translation>
    </message>
    <message>
        <source>its format is not one of %1</source>
        <translation>ihr Format ist keines von %1</translation>
    </message>
    <message>
        <source>its contents are damaged (the header has no end)</source>
        <translation>ihr Inhalt ist beschädigt (der Kopf hat kein Ende)</translation>
    </message>
    <message>
        <source>its contents are not %1</source>
        <translation>ihr Inhalt ist nicht %1</translation>
    </message>
    <message>
        <source>its contents are damaged (%1)</source>
        <translation>ihr Inhalt ist beschädigt (%1)</translation>
    </message>
    <message>
        <source>its contents are damaged (a face lacks its corners)</source>
        <translation>ihr Inhalt ist beschädigt (einer Fläche fehlen die Ecken)</translation>
    </message>
    <message>
        <source>%1 holds no faces.</source>
        <translation>%1 enthält keine Flächen.</translation>
    </message>
    <message>
        <source>it holds coordinates that are not numbers</source>
        <translation>sie enthält Koordinaten, die keine Zahlen sind</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshView</name>
    <message>
        <source>the platform &quot;%1&quot; has no screen</source>
        <translation>die Plattform „%1“ hat keinen Bildschirm</translation>
    </message>
    <message>
        <source>the display offers no OpenGL</source>
        <translation>die Anzeige bietet kein OpenGL</translation>
    </message>
    <message>
        <source>the display offers version %1.%2 only</source>
        <translation>die Anzeige bietet nur Version %1.%2</translation>
    </message>
    <message>
        <source>the display&apos;s can&apos;t be used (%1)</source>
        <translation>das der Anzeige ist nicht zu gebrauchen (%1)</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshWriter</name>
    <message>
        <source>%1 could not be written: %2.</source>
        <translation>%1 konnte nicht geschrieben werden: %2.</translation>
    </message>
</context>
<context>
    <name>Workbench::OpenCommand</name>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Open a mesh from a file</source>
        <translation>Ein Netz aus einer Datei öffnen</translation>
    </message>
    <message>
        <source>Reads a mesh from an OBJ, STL, PLY, OFF, glTF or GLB file. It takes the place of the mesh that is open.</source>
        <translation>Liest ein Netz aus einer OBJ-, STL-, PLY-, OFF-, glTF- oder GLB-Datei. Es tritt an die Stelle des geöffneten Netzes.</translation>
    </message>
    <message>
        <source>There is not enough memory for this file.</source>
        <translation>Für diese Datei reicht der Speicher nicht.</translation>
    </message>
</context>
<context>
    <name>Workbench::OpenImageCommand</name>
    <message>
        <source>Open &amp;Image...</source>
        <translation>&amp;Bild öffnen...</translation>
    </message>
    <message>
        <source>Open an image from a file</source>
        <translation>Ein Bild aus einer Datei öffnen</translation>
    </message>
    <message>
        <source>Shows an image in place of the mesh, which stays open behind it. The images beside it in its folder are a key away.</source>
        <translation>Zeigt ein Bild anstelle des Netzes, das dahinter geöffnet bleibt. Die anderen Bilder seines Ordners sind einen Tastendruck entfernt.</translation>
    </message>
    <message>
        <source>There is not enough memory for this image.</source>
        <translation>Für dieses Bild reicht der Speicher nicht.</translation>
    </message>
</context>
<context>
    <name>Workbench::Options</name>
    <message>
        <source>Shows a mesh and what can be done to it, and images.</source>
        <translation>Zeigt ein Netz und was sich mit ihm tun lässt, und Bilder.</translation>
    </message>
    <message>
        <source>The mesh to open: OBJ, STL, PLY, OFF, glTF or GLB, or an image. The bunny when left out.</source>
        <translation>Das Netz, das geöffnet wird: OBJ, STL, PLY, OFF, glTF oder GLB, oder ein Bild. Ohne Angabe der Hase.</translation>
    </message>
    <message>
        <source>Show every command without a user, save a picture per step and report.json in &lt;folder&gt;, and end; with success if all was as it should be.</source>
        <translation>Zeigt jeden Befehl ohne Benutzer, legt je Schritt ein Bild und dazu report.json in &lt;Ordner&gt; ab und endet; mit Erfolg, wenn alles war, wie es sein soll.</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Write the runs of all commands to &lt;file&gt;, for ui.perfetto.dev or chrome://tracing. The tour writes one anyway.</source>
        <translation>Schreibt die Läufe aller Befehle in &lt;Datei&gt;, für ui.perfetto.dev oder chrome://tracing. Der Rundgang tut das ohnehin.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Have dark colours in this run.</source>
        <translation>Dieses Mal dunkle Farben verwenden.</translation>
    </message>
</context>
<context>
    <name>Workbench::PickCommand</name>
    <message>
        <source>Pic&amp;k Faces</source>
        <translation>Flächen &amp;auswählen</translation>
    </message>
    <message>
        <source>Select faces by clicking them</source>
        <translation>Flächen durch Anklicken auswählen</translation>
    </message>
    <message>
        <source>Selects the face that is clicked. The left button picks until Escape is pressed; the other buttons move the view as always.</source>
        <translation>Wählt die angeklickte Fläche aus. Die linke Taste wählt, bis Esc gedrückt wird; die anderen Tasten bewegen die Ansicht wie immer.</translation>
    </message>
</context>
<context>
    <name>Workbench::PreferencesCommand</name>
    <message>
        <source>&amp;Preferences...</source>
        <translation>Ein&amp;stellungen...</translation>
    </message>
    <message>
        <source>Choose how the program looks and behaves</source>
        <translation>Festlegen, wie das Programm aussieht und sich verhält</translation>
    </message>
    <message>
        <source>Chooses the language, the background of the view, whether buttons explain themselves, and more.</source>
        <translation>Legt die Sprache und den Hintergrund fest, ob Schaltflächen sich erklären, und mehr.</translation>
    </message>
</context>
<context>
    <name>Workbench::PreferencesPanel</name>
    <message>
        <source>&amp;Language</source>
        <translation>S&amp;prache</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>Wie das System</translation>
    </message>
    <message>
        <source>&amp;Background</source>
        <translation>&amp;Hintergrund</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Explain buttons by cards</source>
        <translation>Schaltflächen mit Karten erklären</translation>
    </message>
    <message>
        <source>Tell of edits over the view</source>
        <translation>Änderungen über der Ansicht melden</translation>
    </message>
    <message>
        <source>Dark colors from the next start on</source>
        <translation>Dunkle Farben ab dem nächsten Start</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>Workbench::ProblemDialog</name>
    <message>
        <source>Problem</source>
        <translation>Problem</translation>
    </message>
</context>
<context>
    <name>Workbench::SaveCommand</name>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>Write the mesh to a file</source>
        <translation>Das Netz in eine Datei schreiben</translation>
    </message>
    <message>
        <source>Writes the mesh with all its changes to an OBJ file. The window carries the name of that file then.</source>
        <translation>Schreibt das Netz mit allen Änderungen in eine OBJ-Datei. Danach trägt das Fenster ihren Namen.</translation>
    </message>
    <message>
        <source>There is not enough memory to write the mesh.</source>
        <translation>Der Speicher reicht nicht, um das Netz zu schreiben.</translation>
    </message>
</context>
<context>
    <name>Workbench::SelectionCommand</name>
    <message>
        <source>&amp;Grow Selection</source>
        <translation>Auswahl &amp;erweitern</translation>
    </message>
    <message>
        <source>Select the faces around, too</source>
        <translation>Auch die Flächen ringsum auswählen</translation>
    </message>
    <message>
        <source>Lets the faces join that share a vertex with a selected one.</source>
        <translation>Nimmt die Flächen hinzu, die einen Eckpunkt mit einer ausgewählten teilen.</translation>
    </message>
    <message>
        <source>&amp;Invert Selection</source>
        <translation>Auswahl &amp;invertieren</translation>
    </message>
    <message>
        <source>Select the other faces instead</source>
        <translation>Stattdessen die anderen Flächen auswählen</translation>
    </message>
    <message>
        <source>Selects all faces that are not selected, and only those.</source>
        <translation>Wählt alle Flächen aus, die nicht ausgewählt sind, und nur diese.</translation>
    </message>
    <message>
        <source>&amp;Delete Faces</source>
        <translation>&amp;Flächen löschen</translation>
    </message>
    <message>
        <source>Take the faces out of the mesh</source>
        <translation>Die Flächen aus dem Netz entfernen</translation>
    </message>
    <message>
        <source>Takes the selected faces out of the mesh, and the vertices that no other face has.</source>
        <translation>Entfernt die ausgewählten Flächen aus dem Netz, und die Eckpunkte, die keine andere Fläche hat.</translation>
    </message>
    <message>
        <source>&amp;Clear Selection</source>
        <translation>Auswahl &amp;aufheben</translation>
    </message>
    <message>
        <source>Select nothing</source>
        <translation>Nichts auswählen</translation>
    </message>
    <message>
        <source>Leaves no face selected.</source>
        <translation>Lässt keine Fläche ausgewählt.</translation>
    </message>
    <message>
        <source>The last faces of a mesh can&apos;t be deleted.</source>
        <translation>Die letzten Flächen eines Netzes lassen sich nicht löschen.</translation>
    </message>
</context>
<context>
    <name>Workbench::ShowAllCommand</name>
    <message>
        <source>Show A&amp;ll</source>
        <translation>Alles &amp;zeigen</translation>
    </message>
    <message>
        <source>Bring the whole mesh into sight</source>
        <translation>Das ganze Netz ins Bild bringen</translation>
    </message>
    <message>
        <source>Moves the camera so far that the whole mesh fills the view. The direction stays as it is.</source>
        <translation>Verschiebt die Kamera so weit, dass das ganze Netz die Ansicht füllt. Die Blickrichtung bleibt.</translation>
    </message>
</context>
<context>
    <name>Workbench::SmoothCommand</name>
    <message>
        <source>&amp;Smooth</source>
        <translation>&amp;Glätten</translation>
    </message>
    <message>
        <source>Take the noise out of the surface</source>
        <translation>Das Rauschen aus der Oberfläche nehmen</translation>
    </message>
    <message>
        <source>Moves each vertex towards its neighbours and a little back, so that noise goes and the volume stays. Run it again for more.</source>
        <translation>Verschiebt jeden Eckpunkt zu seinen Nachbarn hin und ein wenig zurück, sodass das Rauschen verschwindet und das Volumen bleibt. Für mehr erneut ausführen.</translation>
    </message>
    <message>
        <source>Smoothing the surface</source>
        <translation>Die Oberfläche wird geglättet</translation>
    </message>
    <message>
        <source>The surface is smoother.</source>
        <translation>Die Oberfläche ist glatter.</translation>
    </message>
</context>
<context>
    <name>Workbench::SmoothFlyout</name>
    <message>
        <source>Steps</source>
        <translation>Schritte</translation>
    </message>
    <message>
        <source>Pull</source>
        <translation>Ziehen</translation>
    </message>
    <message>
        <source>Push back</source>
        <translation>Zurückschieben</translation>
    </message>
    <message>
        <source>Smooth</source>
        <translation>Glätten</translation>
    </message>
    <message>
        <source>Smooth with settings</source>
        <translation>Glätten mit Einstellungen</translation>
    </message>
    <message>
        <source>Take the noise out, as much as you like</source>
        <translation>Das Rauschen herausnehmen, so viel Sie möchten</translation>
    </message>
    <message>
        <source>Opens a panel with the number of steps and, for those who know, how far each one pulls a vertex and pushes it back. Apply as often as you like; reset brings back the mesh of before.</source>
        <translation>Öffnet ein Feld mit der Zahl der Schritte und, für Kenner, wie weit jeder einen Eckpunkt zieht und zurückschiebt. Lässt sich beliebig oft anwenden; Zurücksetzen bringt das vorige Netz wieder.</translation>
    </message>
    <message>
        <source>Smoothing the surface</source>
        <translation>Die Oberfläche wird geglättet</translation>
    </message>
    <message>
        <source>Each step pulls every vertex towards the middle of its neighbours and then pushes it back. What comes back is a little more, so that the mesh does not shrink.</source>
        <translation>Jeder Schritt zieht jeden Eckpunkt zur Mitte seiner Nachbarn und schiebt ihn dann zurück, ein wenig weiter, als er kam. So schrumpft das Netz nicht.</translation>
    </message>
</context>
<context>
    <name>Workbench::StatusLine</name>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>No mesh is open</source>
        <translation>Kein Netz geöffnet</translation>
    </message>
    <message>
        <source>%1 vertices, %2 faces</source>
        <translation>%1 Eckpunkte, %2 Flächen</translation>
    </message>
    <message>
        <source>%1, %2 selected</source>
        <translation>%1, %2 ausgewählt</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 Pixel</translation>
    </message>
    <message>
        <source>%1 is running</source>
        <translation>%1 läuft</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 was stopped</source>
        <translation>%1 abgebrochen</translation>
    </message>
</context>
<context>
    <name>Workbench::StepImageCommand</name>
    <message>
        <source>&amp;Next Image</source>
        <translation>&amp;Nächstes Bild</translation>
    </message>
    <message>
        <source>&amp;Previous Image</source>
        <translation>&amp;Voriges Bild</translation>
    </message>
    <message>
        <source>Show the next image of the folder</source>
        <translation>Das nächste Bild des Ordners zeigen</translation>
    </message>
    <message>
        <source>Show the previous image of the folder</source>
        <translation>Das vorige Bild des Ordners zeigen</translation>
    </message>
    <message>
        <source>There is not enough memory for this image.</source>
        <translation>Für dieses Bild reicht der Speicher nicht.</translation>
    </message>
</context>
<context>
    <name>Workbench::SubdivideCommand</name>
    <message>
        <source>S&amp;ubdivide</source>
        <translation>&amp;Unterteilen</translation>
    </message>
    <message>
        <source>Make four faces of each and round the surface</source>
        <translation>Aus jeder Fläche vier machen und die Oberfläche runden</translation>
    </message>
    <message>
        <source>Makes four faces of each and moves the vertices onto a rounder surface. Corners become soft, and the mesh four times as large.</source>
        <translation>Macht aus jeder Fläche vier und verschiebt die Eckpunkte auf eine rundere Oberfläche. Ecken werden weich, und das Netz wird viermal so groß.</translation>
    </message>
    <message>
        <source>Subdividing the faces</source>
        <translation>Die Flächen werden unterteilt</translation>
    </message>
    <message>
        <source>Each face has become four.</source>
        <translation>Aus jeder Fläche sind vier geworden.</translation>
    </message>
    <message>
        <source>A mesh with more than %1 faces is too large to be subdivided.</source>
        <translation>Ein Netz mit mehr als %1 Flächen ist zu groß zum Unterteilen.</translation>
    </message>
</context>
<context>
    <name>Workbench::SubdivideFlyout</name>
    <message>
        <source>Times</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Subdivide</source>
        <translation>Unterteilen</translation>
    </message>
    <message>
        <source>Subdivide with settings</source>
        <translation>Unterteilen mit Einstellungen</translation>
    </message>
    <message>
        <source>Make many faces of each and round the surface</source>
        <translation>Aus jeder Fläche viele machen und die Oberfläche runden</translation>
    </message>
    <message>
        <source>Opens a panel that tells how many times each face becomes four. Every time the surface gets rounder and the mesh four times as large.</source>
        <translation>Öffnet ein Feld, in dem steht, wie oft aus jeder Fläche vier werden. Jedes Mal wird die Oberfläche runder und das Netz viermal so groß.</translation>
    </message>
    <message>
        <source>Subdividing the faces</source>
        <translation>Die Flächen werden unterteilt</translation>
    </message>
    <message>
        <source>A mesh with more than %1 faces is too large to be subdivided.</source>
        <translation>Ein Netz mit mehr als %1 Flächen ist zu groß zum Unterteilen.</translation>
    </message>
</context>
<context>
    <name>Workbench::Tracing</name>
    <message>
        <source>%1 could not be written: %2.</source>
        <translation>%1 konnte nicht geschrieben werden: %2.</translation>
    </message>
</context>
<context>
    <name>Workbench::ViewPane</name>
    <message>
        <source>The mesh can&apos;t be shown: this view needs OpenGL 3.3, and %1.
The commands that change it work nevertheless.</source>
        <translation>Das Netz lässt sich nicht zeigen: Diese Ansicht braucht OpenGL 3.3, und %1.
Die Befehle, die es verändern, arbeiten trotzdem.</translation>
    </message>
</context>
<context>
    <name>Workbench::ZoomImageCommand</name>
    <message>
        <source>&amp;Original Size</source>
        <translation>&amp;Originalgröße</translation>
    </message>
    <message>
        <source>Show a pixel of the image as one of the screen</source>
        <translation>Ein Pixel des Bildes als eines des Bildschirms zeigen</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Show the image larger</source>
        <translation>Das Bild größer zeigen</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Show the image smaller</source>
        <translation>Das Bild kleiner zeigen</translation>
    </message>
    <message>
        <source>&amp;Fit Image</source>
        <translation>Bild &amp;einpassen</translation>
    </message>
    <message>
        <source>Show the whole image</source>
        <translation>Das ganze Bild zeigen</translation>
    </message>
</context>
</TS>
