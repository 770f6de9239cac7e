<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>korvel::Demo::HelpWindow</name>
    <message>
        <source>Tessra help</source>
        <translation>Hilfe zu Tessra</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Venues&lt;/h2&gt;&lt;p&gt;The venue database (Ctrl+D) knows halls all over the world: where they are, how a truck gets to the dock, what may hang from the grid.&lt;/p&gt;&lt;h3&gt;Find a venue&lt;/h3&gt;&lt;p&gt;Type a part of a name or of a city, or choose a country, and click &lt;b&gt;Search&lt;/b&gt;. &lt;b&gt;Reset&lt;/b&gt; lists everything again. A click on the header of the date column sorts.&lt;/p&gt;&lt;h3&gt;Look at it&lt;/h3&gt;&lt;p&gt;Select a row to see its details. The round buttons step through the pictures; the one in the middle opens them full screen, where the wheel zooms, A and D step, and Ctrl+S saves the picture.&lt;/p&gt;&lt;h3&gt;Bring it into the plan&lt;/h3&gt;&lt;p&gt;Choose one of the model files and click &lt;b&gt;Import to Tessra&lt;/b&gt;. The plan then shows the hall to scale, its stage, its seats and its rigging points with their loads.&lt;/p&gt;&lt;h3&gt;Keys&lt;/h3&gt;&lt;p&gt;Ctrl+D venue database &amp;nbsp;·&amp;nbsp; Ctrl+B light or dark &amp;nbsp;·&amp;nbsp; F1 this page &amp;nbsp;·&amp;nbsp; Ctrl+Q quit&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Spielstätten&lt;/h2&gt;&lt;p&gt;Die Spielstättendatenbank (Strg+D) kennt Hallen auf der ganzen Welt: wo sie liegen, wie ein LKW an die Rampe kommt, was am Schnürboden hängen darf.&lt;/p&gt;&lt;h3&gt;Eine Spielstätte finden&lt;/h3&gt;&lt;p&gt;Geben Sie einen Teil eines Namens oder einer Stadt ein, oder wählen Sie ein Land, und klicken Sie auf &lt;b&gt;Suchen&lt;/b&gt;. &lt;b&gt;Zurücksetzen&lt;/b&gt; zeigt wieder alle. Ein Klick auf die Überschrift der Datumsspalte sortiert.&lt;/p&gt;&lt;h3&gt;Sie ansehen&lt;/h3&gt;&lt;p&gt;Wählen Sie eine Zeile, um die Details zu sehen. Die runden Knöpfe blättern durch die Bilder; der mittlere zeigt sie im Vollbild. Dort zoomt das Mausrad, A und D blättern, und Strg+S speichert das Bild.&lt;/p&gt;&lt;h3&gt;Sie in den Plan holen&lt;/h3&gt;&lt;p&gt;Wählen Sie eine der Modelldateien und klicken Sie auf &lt;b&gt;In Tessra importieren&lt;/b&gt;. Der Plan zeigt dann die Halle im Maßstab, mit Bühne, Plätzen und den Hängepunkten mit ihren Lasten.&lt;/p&gt;&lt;h3&gt;Tasten&lt;/h3&gt;&lt;p&gt;Strg+D Spielstättendatenbank &amp;nbsp;·&amp;nbsp; Strg+B hell oder dunkel &amp;nbsp;·&amp;nbsp; F1 diese Seite &amp;nbsp;·&amp;nbsp; Strg+Q beenden&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::MainWindow</name>
    <message>
        <source>Tessra – untitled plan</source>
        <translation>Tessra – unbenannter Plan</translation>
    </message>
    <message>
        <source>Venue &amp;database…</source>
        <translation>Spielstätten&amp;datenbank…</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>Light or dark (Ctrl+B)</source>
        <translation>Hell oder dunkel (Strg+B)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>No venue</source>
        <translation>Keine Spielstätte</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Tessra – %1</source>
        <translation>Tessra – %1</translation>
    </message>
    <message>
        <source>Imported from the venue database</source>
        <translation>Aus der Spielstättendatenbank importiert</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::PlanView</name>
    <message>
        <source>No venue in this plan yet</source>
        <translation>Noch keine Spielstätte in diesem Plan</translation>
    </message>
    <message>
        <source>Open the venue database, choose a hall and import its model.</source>
        <translation>Öffnen Sie die Spielstättendatenbank, wählen Sie eine Halle und importieren Sie ihr Modell.</translation>
    </message>
    <message numerus="yes">
        <source>Hall %1 × %2 m   ·   %n rigging points, %3 t in all</source>
        <translation>
            <numerusform>Halle %1 × %2 m   ·   %n Hängepunkt, zusammen %3 t</numerusform>
            <numerusform>Halle %1 × %2 m   ·   %n Hängepunkte, zusammen %3 t</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>Rigging point, load in kg</source>
        <translation>Hängepunkt, Last in kg</translation>
    </message>
    <message>
        <source>Seats</source>
        <translation>Plätze</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Bühne</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueDatabaseEmbedding</name>
    <message>
        <source>Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>This model file cannot be read, so the plan stays as it is.</source>
        <translation>Diese Modelldatei lässt sich nicht lesen; der Plan bleibt, wie er ist.</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueModelFile</name>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>this is not a venue model; such a file begins with &quot;tessra-venue 1&quot;.</source>
        <translation>Das ist kein Modell einer Spielstätte; eine solche Datei beginnt mit „tessra-venue 1“.</translation>
    </message>
    <message>
        <source>the file has format version &quot;%1&quot;, only version 1 can be read.</source>
        <translation>Die Datei hat die Formatversion „%1“, nur Version 1 kann gelesen werden.</translation>
    </message>
    <message>
        <source>the word &quot;%1&quot; is not known.</source>
        <translation>Das Wort „%1“ ist nicht bekannt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; may stand only once.</source>
        <translation>„%1“ darf nur einmal vorkommen.</translation>
    </message>
    <message>
        <source>the name is missing.</source>
        <translation>Der Name fehlt.</translation>
    </message>
    <message>
        <source>the unit &quot;%1&quot; is not known, only &quot;m&quot; is.</source>
        <translation>Die Einheit „%1“ ist nicht bekannt, nur „m“.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs at least three corners.</source>
        <translation>„%1“ braucht mindestens drei Ecken.</translation>
    </message>
    <message>
        <source>a rigging point is a position and a load, for example &quot;2.5,-3 500&quot;.</source>
        <translation>Ein Hängepunkt ist eine Position und eine Last, zum Beispiel „2.5,-3 500“.</translation>
    </message>
    <message>
        <source>the load &quot;%1&quot; is out of range.</source>
        <translation>Die Last „%1“ liegt außerhalb des Erlaubten.</translation>
    </message>
    <message>
        <source>the file has more than %1 points.</source>
        <translation>Die Datei hat mehr als %1 Punkte.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a position like &quot;2.5,-3&quot;.</source>
        <translation>„%1“ ist keine Position wie „2.5,-3“.</translation>
    </message>
    <message>
        <source>the position &quot;%1&quot; is too far out.</source>
        <translation>Die Position „%1“ liegt zu weit außen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number.</source>
        <translation>„%1“ ist keine Zahl.</translation>
    </message>
    <message>
        <source>The line &quot;%1&quot; is missing in the file.</source>
        <translation>In der Datei fehlt die Zeile „%1“.</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>Die Datei kann nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>Die Datei kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>The file is larger than %1 MB.</source>
        <translation>Die Datei ist größer als %1 MB.</translation>
    </message>
    <message>
        <source>The file is not a text in UTF-8.</source>
        <translation>Die Datei ist kein Text in UTF-8.</translation>
    </message>
</context>
</TS>
