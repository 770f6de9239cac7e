<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>korvel::Demo::HelpWindow</name>
    <message>
        <source>Tessra help</source>
        <translation>Aide de Tessra</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Venues&lt;/h2&gt;&lt;p&gt;The venue database (Ctrl+D) knows halls all over the world: where they are, how a truck gets to the dock, what may hang from the grid.&lt;/p&gt;&lt;h3&gt;Find a venue&lt;/h3&gt;&lt;p&gt;Type a part of a name or of a city, or choose a country, and click &lt;b&gt;Search&lt;/b&gt;. &lt;b&gt;Reset&lt;/b&gt; lists everything again. A click on the header of the date column sorts.&lt;/p&gt;&lt;h3&gt;Look at it&lt;/h3&gt;&lt;p&gt;Select a row to see its details. The round buttons step through the pictures; the one in the middle opens them full screen, where the wheel zooms, A and D step, and Ctrl+S saves the picture.&lt;/p&gt;&lt;h3&gt;Bring it into the plan&lt;/h3&gt;&lt;p&gt;Choose one of the model files and click &lt;b&gt;Import to Tessra&lt;/b&gt;. The plan then shows the hall to scale, its stage, its seats and its rigging points with their loads.&lt;/p&gt;&lt;h3&gt;Keys&lt;/h3&gt;&lt;p&gt;Ctrl+D venue database &amp;nbsp;·&amp;nbsp; Ctrl+B light or dark &amp;nbsp;·&amp;nbsp; F1 this page &amp;nbsp;·&amp;nbsp; Ctrl+Q quit&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Lieux&lt;/h2&gt;&lt;p&gt;La base de données des lieux (Ctrl+D) connaît des salles du monde entier : où elles se trouvent, comment un camion accède au quai, ce qui peut être accroché au gril.&lt;/p&gt;&lt;h3&gt;Trouver un lieu&lt;/h3&gt;&lt;p&gt;Saisissez une partie d’un nom ou d’une ville, ou choisissez un pays, puis cliquez sur &lt;b&gt;Rechercher&lt;/b&gt;. &lt;b&gt;Réinitialiser&lt;/b&gt; affiche de nouveau tous les lieux. Un clic sur l’en-tête de la colonne des dates trie.&lt;/p&gt;&lt;h3&gt;Le regarder&lt;/h3&gt;&lt;p&gt;Sélectionnez une ligne pour voir les détails. Les boutons ronds font défiler les images ; celui du milieu les affiche en plein écran, où la molette zoome, A et D font défiler et Ctrl+S enregistre l’image.&lt;/p&gt;&lt;h3&gt;Le placer dans le plan&lt;/h3&gt;&lt;p&gt;Choisissez un des fichiers modèles et cliquez sur &lt;b&gt;Importer dans Tessra&lt;/b&gt;. Le plan montre alors la salle à l’échelle, sa scène, ses places et ses points d’accroche avec leurs charges.&lt;/p&gt;&lt;h3&gt;Touches&lt;/h3&gt;&lt;p&gt;Ctrl+D base de données des lieux &amp;nbsp;·&amp;nbsp; Ctrl+B clair ou sombre &amp;nbsp;·&amp;nbsp; F1 cette page &amp;nbsp;·&amp;nbsp; Ctrl+Q quitter&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::MainWindow</name>
    <message>
        <source>Tessra – untitled plan</source>
        <translation>Tessra – plan sans titre</translation>
    </message>
    <message>
        <source>Venue &amp;database…</source>
        <translation>Base de &amp;données des lieux…</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Thème</translation>
    </message>
    <message>
        <source>Light or dark (Ctrl+B)</source>
        <translation>Clair ou sombre (Ctrl+B)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Aid&amp;e</translation>
    </message>
    <message>
        <source>No venue</source>
        <translation>Aucun lieu</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>Tessra – %1</source>
        <translation>Tessra – %1</translation>
    </message>
    <message>
        <source>Imported from the venue database</source>
        <translation>Importé de la base de données des lieux</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::PlanView</name>
    <message>
        <source>No venue in this plan yet</source>
        <translation>Aucun lieu dans ce plan pour le moment</translation>
    </message>
    <message>
        <source>Open the venue database, choose a hall and import its model.</source>
        <translation>Ouvrez la base de données des lieux, choisissez une salle et importez son modèle.</translation>
    </message>
    <message numerus="yes">
        <source>Hall %1 × %2 m   ·   %n rigging points, %3 t in all</source>
        <translation>
            <numerusform>Salle %1 × %2 m   ·   %n point d’accroche, %3 t en tout</numerusform>
            <numerusform>Salle %1 × %2 m   ·   %n points d’accroche, %3 t en tout</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>Rigging point, load in kg</source>
        <translation>Point d’accroche, charge en kg</translation>
    </message>
    <message>
        <source>Seats</source>
        <translation>Places</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Scène</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueDatabaseEmbedding</name>
    <message>
        <source>Import</source>
        <translation>Importation</translation>
    </message>
    <message>
        <source>This model file cannot be read, so the plan stays as it is.</source>
        <translation>Ce fichier modèle ne peut pas être lu ; le plan reste inchangé.</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueModelFile</name>
    <message>
        <source>Line %1: %2</source>
        <translation>Ligne %1 : %2</translation>
    </message>
    <message>
        <source>this is not a venue model; such a file begins with &quot;tessra-venue 1&quot;.</source>
        <translation>ce n’est pas un modèle de lieu ; un tel fichier commence par « tessra-venue 1 ».</translation>
    </message>
    <message>
        <source>the file has format version &quot;%1&quot;, only version 1 can be read.</source>
        <translation>le fichier a la version de format « %1 », seule la version 1 peut être lue.</translation>
    </message>
    <message>
        <source>the word &quot;%1&quot; is not known.</source>
        <translation>le mot « %1 » est inconnu.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; may stand only once.</source>
        <translation>« %1 » ne peut figurer qu’une fois.</translation>
    </message>
    <message>
        <source>the name is missing.</source>
        <translation>le nom manque.</translation>
    </message>
    <message>
        <source>the unit &quot;%1&quot; is not known, only &quot;m&quot; is.</source>
        <translation>l’unité « %1 » est inconnue, seule « m » est admise.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs at least three corners.</source>
        <translation>« %1 » demande au moins trois sommets.</translation>
    </message>
    <message>
        <source>a rigging point is a position and a load, for example &quot;2.5,-3 500&quot;.</source>
        <translation>un point d’accroche est une position et une charge, par exemple « 2.5,-3 500 ».</translation>
    </message>
    <message>
        <source>the load &quot;%1&quot; is out of range.</source>
        <translation>la charge « %1 » est hors limites.</translation>
    </message>
    <message>
        <source>the file has more than %1 points.</source>
        <translation>le fichier a plus de %1 points.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a position like &quot;2.5,-3&quot;.</source>
        <translation>« %1 » n’est pas une position comme « 2.5,-3 ».</translation>
    </message>
    <message>
        <source>the position &quot;%1&quot; is too far out.</source>
        <translation>la position « %1 » est trop éloignée.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number.</source>
        <translation>« %1 » n’est pas un nombre.</translation>
    </message>
    <message>
        <source>The line &quot;%1&quot; is missing in the file.</source>
        <translation>La ligne « %1 » manque dans le fichier.</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>Le fichier ne peut pas être ouvert : %1</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>Le fichier ne peut pas être lu : %1</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Le fichier est vide.</translation>
    </message>
    <message>
        <source>The file is larger than %1 MB.</source>
        <translation>Le fichier dépasse %1 Mo.</translation>
    </message>
    <message>
        <source>The file is not a text in UTF-8.</source>
        <translation>Le fichier n’est pas un texte en UTF-8.</translation>
    </message>
</context>
</TS>
