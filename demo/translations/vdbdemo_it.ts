<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>korvel::Demo::HelpWindow</name>
    <message>
        <source>Tessra help</source>
        <translation>Guida di Tessra</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Venues&lt;/h2&gt;&lt;p&gt;The venue database (Ctrl+D) knows halls all over the world: where they are, how a truck gets to the dock, what may hang from the grid.&lt;/p&gt;&lt;h3&gt;Find a venue&lt;/h3&gt;&lt;p&gt;Type a part of a name or of a city, or choose a country, and click &lt;b&gt;Search&lt;/b&gt;. &lt;b&gt;Reset&lt;/b&gt; lists everything again. A click on the header of the date column sorts.&lt;/p&gt;&lt;h3&gt;Look at it&lt;/h3&gt;&lt;p&gt;Select a row to see its details. The round buttons step through the pictures; the one in the middle opens them full screen, where the wheel zooms, A and D step, and Ctrl+S saves the picture.&lt;/p&gt;&lt;h3&gt;Bring it into the plan&lt;/h3&gt;&lt;p&gt;Choose one of the model files and click &lt;b&gt;Import to Tessra&lt;/b&gt;. The plan then shows the hall to scale, its stage, its seats and its rigging points with their loads.&lt;/p&gt;&lt;h3&gt;Keys&lt;/h3&gt;&lt;p&gt;Ctrl+D venue database &amp;nbsp;·&amp;nbsp; Ctrl+B light or dark &amp;nbsp;·&amp;nbsp; F1 this page &amp;nbsp;·&amp;nbsp; Ctrl+Q quit&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Sedi&lt;/h2&gt;&lt;p&gt;Il database delle sedi (Ctrl+D) conosce sale di tutto il mondo: dove si trovano, come un camion arriva alla banchina, che cosa si può appendere alla graticcia.&lt;/p&gt;&lt;h3&gt;Trovare una sede&lt;/h3&gt;&lt;p&gt;Inserisci una parte di un nome o di una città, o scegli un paese, e fai clic su &lt;b&gt;Cerca&lt;/b&gt;. &lt;b&gt;Reimposta&lt;/b&gt; le elenca di nuovo tutte. Un clic sull’intestazione della colonna della data ordina.&lt;/p&gt;&lt;h3&gt;Guardarla&lt;/h3&gt;&lt;p&gt;Seleziona una riga per vedere i dettagli. I pulsanti rotondi scorrono le immagini; quello al centro le apre a schermo intero, dove la rotella ingrandisce, A e D scorrono e Ctrl+S salva l’immagine.&lt;/p&gt;&lt;h3&gt;Portarla nella pianta&lt;/h3&gt;&lt;p&gt;Scegli uno dei file del modello e fai clic su &lt;b&gt;Importa in Tessra&lt;/b&gt;. La pianta mostra allora la sala in scala, il palco, i posti e i punti di sospensione con i loro carichi.&lt;/p&gt;&lt;h3&gt;Tasti&lt;/h3&gt;&lt;p&gt;Ctrl+D database delle sedi &amp;nbsp;·&amp;nbsp; Ctrl+B chiaro o scuro &amp;nbsp;·&amp;nbsp; F1 questa pagina &amp;nbsp;·&amp;nbsp; Ctrl+Q esci&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::MainWindow</name>
    <message>
        <source>Tessra – untitled plan</source>
        <translation>Tessra – pianta senza titolo</translation>
    </message>
    <message>
        <source>Venue &amp;database…</source>
        <translation>&amp;Database delle sedi…</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Tema</translation>
    </message>
    <message>
        <source>Light or dark (Ctrl+B)</source>
        <translation>Chiaro o scuro (Ctrl+B)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Guida</translation>
    </message>
    <message>
        <source>No venue</source>
        <translation>Nessuna sede</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>Pianta</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Esci</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Visualizza</translation>
    </message>
    <message>
        <source>Tessra – %1</source>
        <translation>Tessra – %1</translation>
    </message>
    <message>
        <source>Imported from the venue database</source>
        <translation>Importata dal database delle sedi</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::PlanView</name>
    <message>
        <source>No venue in this plan yet</source>
        <translation>Ancora nessuna sede in questa pianta</translation>
    </message>
    <message>
        <source>Open the venue database, choose a hall and import its model.</source>
        <translation>Apri il database delle sedi, scegli una sala e importa il suo modello.</translation>
    </message>
    <message numerus="yes">
        <source>Hall %1 × %2 m   ·   %n rigging points, %3 t in all</source>
        <translation>
            <numerusform>Sala %1 × %2 m   ·   %n punto di sospensione, %3 t in tutto</numerusform>
            <numerusform>Sala %1 × %2 m   ·   %n punti di sospensione, %3 t in tutto</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>Rigging point, load in kg</source>
        <translation>Punto di sospensione, carico in kg</translation>
    </message>
    <message>
        <source>Seats</source>
        <translation>Posti</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Palco</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueDatabaseEmbedding</name>
    <message>
        <source>Import</source>
        <translation>Importazione</translation>
    </message>
    <message>
        <source>This model file cannot be read, so the plan stays as it is.</source>
        <translation>Questo file del modello non si può leggere; la pianta resta com’è.</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueModelFile</name>
    <message>
        <source>Line %1: %2</source>
        <translation>Riga %1: %2</translation>
    </message>
    <message>
        <source>this is not a venue model; such a file begins with &quot;tessra-venue 1&quot;.</source>
        <translation>questo non è il modello di una sede; un file del genere inizia con “tessra-venue 1”.</translation>
    </message>
    <message>
        <source>the file has format version &quot;%1&quot;, only version 1 can be read.</source>
        <translation>il file ha la versione di formato “%1”, si può leggere solo la versione 1.</translation>
    </message>
    <message>
        <source>the word &quot;%1&quot; is not known.</source>
        <translation>la parola “%1” è sconosciuta.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; may stand only once.</source>
        <translation>“%1” può comparire una volta sola.</translation>
    </message>
    <message>
        <source>the name is missing.</source>
        <translation>manca il nome.</translation>
    </message>
    <message>
        <source>the unit &quot;%1&quot; is not known, only &quot;m&quot; is.</source>
        <translation>l’unità “%1” è sconosciuta, è nota solo “m”.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs at least three corners.</source>
        <translation>“%1” richiede almeno tre vertici.</translation>
    </message>
    <message>
        <source>a rigging point is a position and a load, for example &quot;2.5,-3 500&quot;.</source>
        <translation>un punto di sospensione è una posizione e un carico, per esempio “2.5,-3 500”.</translation>
    </message>
    <message>
        <source>the load &quot;%1&quot; is out of range.</source>
        <translation>il carico “%1” è fuori dai limiti.</translation>
    </message>
    <message>
        <source>the file has more than %1 points.</source>
        <translation>il file ha più di %1 punti.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a position like &quot;2.5,-3&quot;.</source>
        <translation>“%1” non è una posizione come “2.5,-3”.</translation>
    </message>
    <message>
        <source>the position &quot;%1&quot; is too far out.</source>
        <translation>la posizione “%1” è troppo lontana.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number.</source>
        <translation>“%1” non è un numero.</translation>
    </message>
    <message>
        <source>The line &quot;%1&quot; is missing in the file.</source>
        <translation>Nel file manca la riga “%1”.</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>Impossibile aprire il file: %1</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>Impossibile leggere il file: %1</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Il file è vuoto.</translation>
    </message>
    <message>
        <source>The file is larger than %1 MB.</source>
        <translation>Il file supera %1 MB.</translation>
    </message>
    <message>
        <source>The file is not a text in UTF-8.</source>
        <translation>Il file non è un testo in UTF-8.</translation>
    </message>
</context>
</TS>
