<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ImageViewerToolBar</name>
    <message>
        <source>Image Viewer Tool Bar</source>
        <translation>Werkzeugleiste der Bildansicht</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Previous image&lt;br/&gt;Shortcut: &amp;lt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Voriges Bild&lt;br/&gt;Taste: &amp;lt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Previous image</source>
        <translation>Voriges Bild</translation>
    </message>
    <message>
        <source>&lt;</source>
        <translation>&lt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Next image&lt;br/&gt;Shortcut: &amp;gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Nächstes Bild&lt;br/&gt;Taste: &amp;gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next image</source>
        <translation>Nächstes Bild</translation>
    </message>
    <message>
        <source>&gt;</source>
        <translation>&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Fit in the image&lt;br/&gt;Shortcut: F&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Bild einpassen&lt;br/&gt;Taste: F&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Fit in the image</source>
        <translation>Bild einpassen</translation>
    </message>
    <message>
        <source>F</source>
        <translation>F</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Show image in its original size&lt;br /&gt;Shortcut: O&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Bild in Originalgröße zeigen&lt;br /&gt;Taste: O&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Show image in its original size</source>
        <translation>Bild in Originalgröße zeigen</translation>
    </message>
    <message>
        <source>O</source>
        <translation>O</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Zoom in&lt;br /&gt;Shortcut: +&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Vergrößern&lt;br /&gt;Taste: +&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>+</source>
        <translation>+</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Zoom Out&lt;br /&gt;Shortcut: -&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Verkleinern&lt;br /&gt;Taste: -&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>-</source>
        <translation>-</translation>
    </message>
</context>
<context>
    <name>Vela::Resource::String</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
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
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Dynamic Tools</source>
        <translation>Dynamische Werkzeuge</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::FlyoutBase</name>
    <message>
        <source>BaseFlyout</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&lt;title&gt;</source>
        <translation>&lt;Titel&gt;</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Close the flyout</source>
        <translation>Einstellungen schließen</translation>
    </message>
    <message>
        <source>Show/Hide advanced settings</source>
        <translation>Erweiterte Einstellungen ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>Erweitert</translation>
    </message>
    <message>
        <source>Cancel the changes</source>
        <translation>Änderungen verwerfen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Apply the changes</source>
        <translation>Änderungen anwenden</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::InfoDialog</name>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::QtUiDebugger</name>
    <message>
        <source>Class: </source>
        <translation>Klasse: </translation>
    </message>
    <message>
        <source>Name: </source>
        <translation>Name: </translation>
    </message>
    <message>
        <source>Parent Class: </source>
        <translation>Klasse des Elternobjekts: </translation>
    </message>
    <message>
        <source>Parent Name: </source>
        <translation>Name des Elternobjekts: </translation>
    </message>
    <message>
        <source>Widget Info</source>
        <translation>Angaben zum Widget</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::TooltipEx</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>Mehr anzeigen</translation>
    </message>
    <message>
        <source>content</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Press F1 for more help</source>
        <translation>F1 drücken für weitere Hilfe</translation>
    </message>
</context>
<context>
    <name>Vela::UiToolkit::SampleInnerTooltip</name>
    <message>
        <source>Sample Inner Tooltip</source>
        <translation>Beispielseite</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;This is the advanced part of the tooltip! &lt;br /&gt;&lt;br /&gt;&lt;b&gt;Here is a sample image:&lt;/b&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Dies ist der erweiterte Teil der Karte! &lt;br /&gt;&lt;br /&gt;&lt;b&gt;Hier ist ein Beispielbild:&lt;/b&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
<context>
    <name>Vela::UiToolkit::TaskDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Dialog</translation>
    </message>
    <message>
        <source>Close the message box</source>
        <translation>Meldung schließen</translation>
    </message>
    <message>
        <source>Default title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Default message</source>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>Frage</translation>
    </message>
</context>
</TS>
