<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>korvel::Demo::HelpWindow</name>
    <message>
        <source>Tessra help</source>
        <translation>Ayuda de Tessra</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Venues&lt;/h2&gt;&lt;p&gt;The venue database (Ctrl+D) knows halls all over the world: where they are, how a truck gets to the dock, what may hang from the grid.&lt;/p&gt;&lt;h3&gt;Find a venue&lt;/h3&gt;&lt;p&gt;Type a part of a name or of a city, or choose a country, and click &lt;b&gt;Search&lt;/b&gt;. &lt;b&gt;Reset&lt;/b&gt; lists everything again. A click on the header of the date column sorts.&lt;/p&gt;&lt;h3&gt;Look at it&lt;/h3&gt;&lt;p&gt;Select a row to see its details. The round buttons step through the pictures; the one in the middle opens them full screen, where the wheel zooms, A and D step, and Ctrl+S saves the picture.&lt;/p&gt;&lt;h3&gt;Bring it into the plan&lt;/h3&gt;&lt;p&gt;Choose one of the model files and click &lt;b&gt;Import to Tessra&lt;/b&gt;. The plan then shows the hall to scale, its stage, its seats and its rigging points with their loads.&lt;/p&gt;&lt;h3&gt;Keys&lt;/h3&gt;&lt;p&gt;Ctrl+D venue database &amp;nbsp;·&amp;nbsp; Ctrl+B light or dark &amp;nbsp;·&amp;nbsp; F1 this page &amp;nbsp;·&amp;nbsp; Ctrl+Q quit&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Recintos&lt;/h2&gt;&lt;p&gt;La base de datos de recintos (Ctrl+D) conoce salas de todo el mundo: dónde están, cómo llega un camión al muelle, qué puede colgar del peine.&lt;/p&gt;&lt;h3&gt;Encontrar un recinto&lt;/h3&gt;&lt;p&gt;Escriba parte de un nombre o de una ciudad, o elija un país, y haga clic en &lt;b&gt;Buscar&lt;/b&gt;. &lt;b&gt;Restablecer&lt;/b&gt; vuelve a mostrarlos todos. Un clic en el encabezado de la columna de fecha ordena.&lt;/p&gt;&lt;h3&gt;Verlo&lt;/h3&gt;&lt;p&gt;Seleccione una fila para ver los detalles. Los botones redondos pasan las imágenes; el del centro las muestra a pantalla completa, donde la rueda amplía, A y D pasan las imágenes y Ctrl+S guarda la imagen.&lt;/p&gt;&lt;h3&gt;Llevarlo al plano&lt;/h3&gt;&lt;p&gt;Elija uno de los archivos de modelo y haga clic en &lt;b&gt;Importar a Tessra&lt;/b&gt;. El plano muestra entonces la sala a escala, su escenario, sus asientos y sus puntos de colgado con sus cargas.&lt;/p&gt;&lt;h3&gt;Teclas&lt;/h3&gt;&lt;p&gt;Ctrl+D base de datos de recintos &amp;nbsp;·&amp;nbsp; Ctrl+B claro u oscuro &amp;nbsp;·&amp;nbsp; F1 esta página &amp;nbsp;·&amp;nbsp; Ctrl+Q salir&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::MainWindow</name>
    <message>
        <source>Tessra – untitled plan</source>
        <translation>Tessra – plano sin título</translation>
    </message>
    <message>
        <source>Venue &amp;database…</source>
        <translation>Base de &amp;datos de recintos…</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Tema</translation>
    </message>
    <message>
        <source>Light or dark (Ctrl+B)</source>
        <translation>Claro u oscuro (Ctrl+B)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ay&amp;uda</translation>
    </message>
    <message>
        <source>No venue</source>
        <translation>Ningún recinto</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>Plano</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>Tessra – %1</source>
        <translation>Tessra – %1</translation>
    </message>
    <message>
        <source>Imported from the venue database</source>
        <translation>Importado de la base de datos de recintos</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::PlanView</name>
    <message>
        <source>No venue in this plan yet</source>
        <translation>Todavía no hay ningún recinto en este plano</translation>
    </message>
    <message>
        <source>Open the venue database, choose a hall and import its model.</source>
        <translation>Abra la base de datos de recintos, elija una sala e importe su modelo.</translation>
    </message>
    <message numerus="yes">
        <source>Hall %1 × %2 m   ·   %n rigging points, %3 t in all</source>
        <translation>
            <numerusform>Sala %1 × %2 m   ·   %n punto de colgado, %3 t en total</numerusform>
            <numerusform>Sala %1 × %2 m   ·   %n puntos de colgado, %3 t en total</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>Rigging point, load in kg</source>
        <translation>Punto de colgado, carga en kg</translation>
    </message>
    <message>
        <source>Seats</source>
        <translation>Asientos</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Escenario</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueDatabaseEmbedding</name>
    <message>
        <source>Import</source>
        <translation>Importación</translation>
    </message>
    <message>
        <source>This model file cannot be read, so the plan stays as it is.</source>
        <translation>Este archivo de modelo no se puede leer; el plano se queda como está.</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueModelFile</name>
    <message>
        <source>Line %1: %2</source>
        <translation>Línea %1: %2</translation>
    </message>
    <message>
        <source>this is not a venue model; such a file begins with &quot;tessra-venue 1&quot;.</source>
        <translation>esto no es un modelo de recinto; un archivo así empieza por «tessra-venue 1».</translation>
    </message>
    <message>
        <source>the file has format version &quot;%1&quot;, only version 1 can be read.</source>
        <translation>el archivo tiene la versión de formato «%1», solo se puede leer la versión 1.</translation>
    </message>
    <message>
        <source>the word &quot;%1&quot; is not known.</source>
        <translation>la palabra «%1» no se conoce.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; may stand only once.</source>
        <translation>«%1» solo puede aparecer una vez.</translation>
    </message>
    <message>
        <source>the name is missing.</source>
        <translation>falta el nombre.</translation>
    </message>
    <message>
        <source>the unit &quot;%1&quot; is not known, only &quot;m&quot; is.</source>
        <translation>la unidad «%1» no se conoce, solo «m».</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs at least three corners.</source>
        <translation>«%1» necesita al menos tres esquinas.</translation>
    </message>
    <message>
        <source>a rigging point is a position and a load, for example &quot;2.5,-3 500&quot;.</source>
        <translation>un punto de colgado es una posición y una carga, por ejemplo «2.5,-3 500».</translation>
    </message>
    <message>
        <source>the load &quot;%1&quot; is out of range.</source>
        <translation>la carga «%1» está fuera de los límites.</translation>
    </message>
    <message>
        <source>the file has more than %1 points.</source>
        <translation>el archivo tiene más de %1 puntos.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a position like &quot;2.5,-3&quot;.</source>
        <translation>«%1» no es una posición como «2.5,-3».</translation>
    </message>
    <message>
        <source>the position &quot;%1&quot; is too far out.</source>
        <translation>la posición «%1» está demasiado lejos.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number.</source>
        <translation>«%1» no es un número.</translation>
    </message>
    <message>
        <source>The line &quot;%1&quot; is missing in the file.</source>
        <translation>En el archivo falta la línea «%1».</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>No se puede abrir el archivo: %1</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>No se puede leer el archivo: %1</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>El archivo está vacío.</translation>
    </message>
    <message>
        <source>The file is larger than %1 MB.</source>
        <translation>El archivo supera %1 MB.</translation>
    </message>
    <message>
        <source>The file is not a text in UTF-8.</source>
        <translation>El archivo no es un texto en UTF-8.</translation>
    </message>
</context>
</TS>
