<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>korvel::Demo::HelpWindow</name>
    <message>
        <source>Tessra help</source>
        <translation>Tessra help</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Venues&lt;/h2&gt;&lt;p&gt;The venue database (Ctrl+D) knows halls all over the world: where they are, how a truck gets to the dock, what may hang from the grid.&lt;/p&gt;&lt;h3&gt;Find a venue&lt;/h3&gt;&lt;p&gt;Type a part of a name or of a city, or choose a country, and click &lt;b&gt;Search&lt;/b&gt;. &lt;b&gt;Reset&lt;/b&gt; lists everything again. A click on the header of the date column sorts.&lt;/p&gt;&lt;h3&gt;Look at it&lt;/h3&gt;&lt;p&gt;Select a row to see its details. The round buttons step through the pictures; the one in the middle opens them full screen, where the wheel zooms, A and D step, and Ctrl+S saves the picture.&lt;/p&gt;&lt;h3&gt;Bring it into the plan&lt;/h3&gt;&lt;p&gt;Choose one of the model files and click &lt;b&gt;Import to Tessra&lt;/b&gt;. The plan then shows the hall to scale, its stage, its seats and its rigging points with their loads.&lt;/p&gt;&lt;h3&gt;Keys&lt;/h3&gt;&lt;p&gt;Ctrl+D venue database &amp;nbsp;·&amp;nbsp; Ctrl+B light or dark &amp;nbsp;·&amp;nbsp; F1 this page &amp;nbsp;·&amp;nbsp; Ctrl+Q quit&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Venues&lt;/h2&gt;&lt;p&gt;The venue database (Ctrl+D) knows halls all over the world: where they are, how a truck gets to the dock, what may hang from the grid.&lt;/p&gt;&lt;h3&gt;Find a venue&lt;/h3&gt;&lt;p&gt;Type a part of a name or of a city, or choose a country, and click &lt;b&gt;Search&lt;/b&gt;. &lt;b&gt;Reset&lt;/b&gt; lists everything again. A click on the header of the date column sorts.&lt;/p&gt;&lt;h3&gt;Look at it&lt;/h3&gt;&lt;p&gt;Select a row to see its details. The round buttons step through the pictures; the one in the middle opens them full screen, where the wheel zooms, A and D step, and Ctrl+S saves the picture.&lt;/p&gt;&lt;h3&gt;Bring it into the plan&lt;/h3&gt;&lt;p&gt;Choose one of the model files and click &lt;b&gt;Import to Tessra&lt;/b&gt;. The plan then shows the hall to scale, its stage, its seats and its rigging points with their loads.&lt;/p&gt;&lt;h3&gt;Keys&lt;/h3&gt;&lt;p&gt;Ctrl+D venue database &amp;nbsp;·&amp;nbsp; Ctrl+B light or dark &amp;nbsp;·&amp;nbsp; F1 this page &amp;nbsp;·&amp;nbsp; Ctrl+Q quit&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::MainWindow</name>
    <message>
        <source>Tessra – untitled plan</source>
        <translation>Tessra – untitled plan</translation>
    </message>
    <message>
        <source>Venue &amp;database…</source>
        <translation>Venue &amp;database…</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Theme</translation>
    </message>
    <message>
        <source>Light or dark (Ctrl+B)</source>
        <translation>Light or dark (Ctrl+B)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>No venue</source>
        <translation>No venue</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>Tessra – %1</source>
        <translation>Tessra – %1</translation>
    </message>
    <message>
        <source>Imported from the venue database</source>
        <translation>Imported from the venue database</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::PlanView</name>
    <message>
        <source>No venue in this plan yet</source>
        <translation>No venue in this plan yet</translation>
    </message>
    <message>
        <source>Open the venue database, choose a hall and import its model.</source>
        <translation>Open the venue database, choose a hall and import its model.</translation>
    </message>
    <message numerus="yes">
        <source>Hall %1 × %2 m   ·   %n rigging points, %3 t in all</source>
        <translation>
            <numerusform>Hall %1 × %2 m   ·   %n rigging point, %3 t in all</numerusform>
            <numerusform>Hall %1 × %2 m   ·   %n rigging points, %3 t in all</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>Rigging point, load in kg</source>
        <translation>Rigging point, load in kg</translation>
    </message>
    <message>
        <source>Seats</source>
        <translation>Seats</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Stage</translation>
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
        <translation>This model file cannot be read, so the plan stays as it is.</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueModelFile</name>
    <message>
        <source>Line %1: %2</source>
        <translation>Line %1: %2</translation>
    </message>
    <message>
        <source>this is not a venue model; such a file begins with &quot;tessra-venue 1&quot;.</source>
        <translation>this is not a venue model; such a file begins with &quot;tessra-venue 1&quot;.</translation>
    </message>
    <message>
        <source>the file has format version &quot;%1&quot;, only version 1 can be read.</source>
        <translation>the file has format version &quot;%1&quot;, only version 1 can be read.</translation>
    </message>
    <message>
        <source>the word &quot;%1&quot; is not known.</source>
        <translation>the word &quot;%1&quot; is not known.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; may stand only once.</source>
        <translation>&quot;%1&quot; may stand only once.</translation>
    </message>
    <message>
        <source>the name is missing.</source>
        <translation>the name is missing.</translation>
    </message>
    <message>
        <source>the unit &quot;%1&quot; is not known, only &quot;m&quot; is.</source>
        <translation>the unit &quot;%1&quot; is not known, only &quot;m&quot; is.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs at least three corners.</source>
        <translation>&quot;%1&quot; needs at least three corners.</translation>
    </message>
    <message>
        <source>a rigging point is a position and a load, for example &quot;2.5,-3 500&quot;.</source>
        <translation>a rigging point is a position and a load, for example &quot;2.5,-3 500&quot;.</translation>
    </message>
    <message>
        <source>the load &quot;%1&quot; is out of range.</source>
        <translation>the load &quot;%1&quot; is out of range.</translation>
    </message>
    <message>
        <source>the file has more than %1 points.</source>
        <translation>the file has more than %1 points.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a position like &quot;2.5,-3&quot;.</source>
        <translation>&quot;%1&quot; is not a position like &quot;2.5,-3&quot;.</translation>
    </message>
    <message>
        <source>the position &quot;%1&quot; is too far out.</source>
        <translation>the position &quot;%1&quot; is too far out.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number.</source>
        <translation>&quot;%1&quot; is not a number.</translation>
    </message>
    <message>
        <source>The line &quot;%1&quot; is missing in the file.</source>
        <translation>The line &quot;%1&quot; is missing in the file.</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>The file cannot be opened: %1</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>The file cannot be read: %1</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>The file is empty.</translation>
    </message>
    <message>
        <source>The file is larger than %1 MB.</source>
        <translation>The file is larger than %1 MB.</translation>
    </message>
    <message>
        <source>The file is not a text in UTF-8.</source>
        <translation>The file is not a text in UTF-8.</translation>
    </message>
</context>
</TS>
