<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Complex name</source>
        <translation>Name des Komplexes</translation>
    </message>
    <message>
        <source>Venue/room name</source>
        <translation>Spielstätte/Raum</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Stadt</translation>
    </message>
    <message>
        <source>General comment</source>
        <translation>Allgemeines</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Editing date (UTC)</source>
        <translation>Bearbeitet am (UTC)</translation>
    </message>
    <message>
        <source>Location comment</source>
        <translation>Anmerkung zur Lage</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Anmerkung</translation>
    </message>
    <message>
        <source>Clearance of house grid (m)</source>
        <translation>Lichte Höhe Schnürboden (m)</translation>
    </message>
    <message>
        <source>Upload date</source>
        <translation>Hochgeladen am</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Bearbeitet von</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::FoldingIcon</name>
    <message>
        <source>Expand venue details</source>
        <translation>Details zur Spielstätte ausklappen</translation>
    </message>
    <message>
        <source>Collapse venue details</source>
        <translation>Details zur Spielstätte einklappen</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureFullscreenDialog</name>
    <message>
        <source>Could not save file. Sorry.</source>
        <translation>Die Datei konnte leider nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Saved &quot;%1&quot;</source>
        <translation>„%1“ gespeichert</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 ist bereits vorhanden.
Möchten Sie die Datei ersetzen?</translation>
    </message>
    <message>
        <source>Save Image As...</source>
        <translation>Bild speichern unter...</translation>
    </message>
    <message>
        <source>Save Image As</source>
        <translation>Bild speichern unter</translation>
    </message>
    <message>
        <source>Venue database pictures</source>
        <translation>Bilder der Spielstättendatenbank</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Plus and Minus zoom, Page Up shows the next picture and Page Down the previous one, Ctrl+S saves.</source>
        <translation>Plus und Minus zoomen, Bild auf zeigt das nächste Bild und Bild ab das vorige, Strg+S speichert.</translation>
    </message>
    <message>
        <source>Loading large image...</source>
        <translation>Großes Bild wird geladen...</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureNavigationButton</name>
    <message>
        <source>Previous picture</source>
        <translation>Voriges Bild</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Nächstes Bild</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureSlider</name>
    <message>
        <source>No Image</source>
        <translation>Kein Bild</translation>
    </message>
    <message>
        <source>Venue pictures</source>
        <translation>Bilder der Spielstätte</translation>
    </message>
    <message>
        <source>Show pictures full screen</source>
        <translation>Bilder im Vollbild zeigen</translation>
    </message>
    <message>
        <source>Image failure</source>
        <translation>Bildfehler</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::TsFileOpener</name>
    <message>
        <source>File selector: </source>
        <translation>Modelldatei: </translation>
    </message>
    <message>
        <source>Import to Tessra</source>
        <translation>In Tessra importieren</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbCentralWidget</name>
    <message>
        <source>To conduct a targeted search, please enter search terms or single letters in the fields below and click Search. To view the complete result list, click Reset.</source>
        <translation>Für eine gezielte Suche bitte Begriffe oder Buchstaben in die Felder eingeben und „Suchen“ klicken. Die vollständige Liste zeigt „Zurücksetzen“.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Venues</source>
        <translation>Spielstätten</translation>
    </message>
    <message>
        <source>The venues that were found. Select one to see its details.</source>
        <translation>Die gefundenen Spielstätten. Wählen Sie eine aus, um ihre Details zu sehen.</translation>
    </message>
    <message>
        <source>Sort by %1</source>
        <translation>Nach „%1“ sortieren</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Unable to connect to server. 
Please check your internet connection.</source>
        <translation>Der Server ist nicht erreichbar. 
Bitte prüfen Sie Ihre Internetverbindung.</translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation>Wird geladen...</translation>
    </message>
    <message>
        <source>Height of the venue table</source>
        <translation>Höhe der Spielstättentabelle</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialog</name>
    <message>
        <source>Venue database</source>
        <translation>Spielstättendatenbank</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialogBase</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDetailsWidget</name>
    <message>
        <source>Venue details</source>
        <translation>Details zur Spielstätte</translation>
    </message>
    <message>
        <source>Name of overall multi-venue building or campus (identical to Venue name if there is only one event venue in the building/on the campus).</source>
        <translation>Name des gesamten Gebäudes oder Geländes mit mehreren Spielstätten (gleich dem Namen der Spielstätte, wenn es dort nur eine gibt).</translation>
    </message>
    <message>
        <source>Name of the specific venue/room within the multi-venue building/campus (identical to Complex name if there is only one venue in the building).</source>
        <translation>Name der einzelnen Spielstätte oder des Raums innerhalb des Komplexes (gleich dem Namen des Komplexes, wenn es im Gebäude nur eine gibt).</translation>
    </message>
    <message>
        <source>Official address of venue.</source>
        <translation>Offizielle Adresse der Spielstätte.</translation>
    </message>
    <message>
        <source>Anything that is important to know when accessing the venue, such as &quot;try to arrive before 9am to avoid terrible traffic&quot;.</source>
        <translation>Alles, was für die Anfahrt wichtig ist, zum Beispiel „möglichst vor 9 Uhr ankommen, danach dichter Verkehr“.</translation>
    </message>
    <message>
        <source>If the street address of the loading dock is not the same as the official loading dock address, please enter here.</source>
        <translation>Bitte hier angeben, wenn die Straßenadresse der Laderampe von ihrer offiziellen Adresse abweicht.</translation>
    </message>
    <message>
        <source>If there are any peculiarities about the dock (e.g. &quot;difficult to reverse into&quot;, or &quot;freight elevator only&quot;), please note them here.</source>
        <translation>Besonderheiten der Laderampe bitte hier vermerken (z. B. „rückwärts schwer anzufahren“ oder „nur Lastenaufzug“).</translation>
    </message>
    <message>
        <source>To calculate how much actual rigging height is going to be available considering production-specific pre-riggs and chain motors.</source>
        <translation>Zur Berechnung der tatsächlich verfügbaren Rigginghöhe unter Berücksichtigung produktionsspezifischer Pre-Rigs und Kettenzüge.</translation>
    </message>
    <message>
        <source>Any specialties or unusual restrictions, such as &quot;all points have to be bridled&quot; or &quot;no access to catwalk, all points have to be set via cherry picker&quot;.</source>
        <translation>Besonderheiten oder ungewöhnliche Einschränkungen, zum Beispiel „alle Punkte müssen als Bridle ausgeführt werden“ oder „kein Zugang zum Catwalk, alle Punkte nur mit Hubsteiger“.</translation>
    </message>
    <message>
        <source>labelKorvelCaptionSmall</source>
        <translation>labelKorvelCaptionSmall</translation>
    </message>
    <message>
        <source>Loading dock, %1</source>
        <translation>Laderampe, %1</translation>
    </message>
    <message>
        <source>Rigging, %1</source>
        <translation>Rigging, %1</translation>
    </message>
</context>
</TS>
