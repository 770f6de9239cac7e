<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Complex name</source>
        <translation>Nome del complesso</translation>
    </message>
    <message>
        <source>Venue/room name</source>
        <translation>Sede/sala</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Città</translation>
    </message>
    <message>
        <source>General comment</source>
        <translation>Nota generale</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Paese</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Indirizzo</translation>
    </message>
    <message>
        <source>Editing date (UTC)</source>
        <translation>Modificato il (UTC)</translation>
    </message>
    <message>
        <source>Location comment</source>
        <translation>Nota sulla posizione</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Nota</translation>
    </message>
    <message>
        <source>Clearance of house grid (m)</source>
        <translation>Altezza libera graticcia (m)</translation>
    </message>
    <message>
        <source>Upload date</source>
        <translation>Caricato il</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Modificato da</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::FoldingIcon</name>
    <message>
        <source>Expand venue details</source>
        <translation>Espandi i dettagli della sede</translation>
    </message>
    <message>
        <source>Collapse venue details</source>
        <translation>Comprimi i dettagli della sede</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureFullscreenDialog</name>
    <message>
        <source>Could not save file. Sorry.</source>
        <translation>Spiacenti, impossibile salvare il file.</translation>
    </message>
    <message>
        <source>Saved &quot;%1&quot;</source>
        <translation>Salvato «%1»</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>Impossibile scrivere %1</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 esiste già.
Sostituirlo?</translation>
    </message>
    <message>
        <source>Save Image As...</source>
        <translation>Salva immagine con nome...</translation>
    </message>
    <message>
        <source>Save Image As</source>
        <translation>Salva immagine con nome</translation>
    </message>
    <message>
        <source>Venue database pictures</source>
        <translation>Immagini del database delle sedi</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Immagine</translation>
    </message>
    <message>
        <source>Plus and Minus zoom, Page Up shows the next picture and Page Down the previous one, Ctrl+S saves.</source>
        <translation>Più e Meno regolano lo zoom, Pag su mostra l’immagine successiva e Pag giù la precedente, Ctrl+S salva.</translation>
    </message>
    <message>
        <source>Loading large image...</source>
        <translation>Caricamento dell’immagine grande...</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureNavigationButton</name>
    <message>
        <source>Previous picture</source>
        <translation>Immagine precedente</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Immagine successiva</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureSlider</name>
    <message>
        <source>No Image</source>
        <translation>No immagine</translation>
    </message>
    <message>
        <source>Venue pictures</source>
        <translation>Immagini della sede</translation>
    </message>
    <message>
        <source>Show pictures full screen</source>
        <translation>Mostra le immagini a schermo intero</translation>
    </message>
    <message>
        <source>Image failure</source>
        <translation>Errore immagine</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::TsFileOpener</name>
    <message>
        <source>File selector: </source>
        <translation>File del modello: </translation>
    </message>
    <message>
        <source>Import to Tessra</source>
        <translation>Importa in Tessra</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbCentralWidget</name>
    <message>
        <source>To conduct a targeted search, please enter search terms or single letters in the fields below and click Search. To view the complete result list, click Reset.</source>
        <translation>Per una ricerca mirata, inserire termini o singole lettere nei campi qui sotto e fare clic su «Cerca». Per vedere l’elenco completo, fare clic su «Reimposta».</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Cerca</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Reimposta</translation>
    </message>
    <message>
        <source>Venues</source>
        <translation>Sedi</translation>
    </message>
    <message>
        <source>The venues that were found. Select one to see its details.</source>
        <translation>Le sedi trovate. Selezionarne una per vederne i dettagli.</translation>
    </message>
    <message>
        <source>Sort by %1</source>
        <translation>Ordina per «%1»</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Errore</translation>
    </message>
    <message>
        <source>Unable to connect to server. 
Please check your internet connection.</source>
        <translation>Impossibile connettersi al server. 
Controllare la connessione a Internet.</translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation>Caricamento...</translation>
    </message>
    <message>
        <source>Height of the venue table</source>
        <translation>Altezza della tabella delle sedi</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialog</name>
    <message>
        <source>Venue database</source>
        <translation>Database delle sedi</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialogBase</name>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Guida</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDetailsWidget</name>
    <message>
        <source>Venue details</source>
        <translation>Dettagli della sede</translation>
    </message>
    <message>
        <source>Name of overall multi-venue building or campus (identical to Venue name if there is only one event venue in the building/on the campus).</source>
        <translation>Nome dell’intero edificio o complesso con più sedi (identico al nome della sede se nell’edificio o nel complesso ce n’è una sola).</translation>
    </message>
    <message>
        <source>Name of the specific venue/room within the multi-venue building/campus (identical to Complex name if there is only one venue in the building).</source>
        <translation>Nome della singola sede o sala all’interno del complesso (identico al nome del complesso se nell’edificio c’è una sola sede).</translation>
    </message>
    <message>
        <source>Official address of venue.</source>
        <translation>Indirizzo ufficiale della sede.</translation>
    </message>
    <message>
        <source>Anything that is important to know when accessing the venue, such as &quot;try to arrive before 9am to avoid terrible traffic&quot;.</source>
        <translation>Tutto ciò che è importante sapere per raggiungere la sede, ad esempio «arrivare prima delle 9 per evitare il traffico intenso».</translation>
    </message>
    <message>
        <source>If the street address of the loading dock is not the same as the official loading dock address, please enter here.</source>
        <translation>Da indicare qui se l’indirizzo della banchina di carico è diverso da quello ufficiale della banchina.</translation>
    </message>
    <message>
        <source>If there are any peculiarities about the dock (e.g. &quot;difficult to reverse into&quot;, or &quot;freight elevator only&quot;), please note them here.</source>
        <translation>Annotare qui eventuali particolarità della banchina (ad es. «difficile da raggiungere in retromarcia» o «solo montacarichi»).</translation>
    </message>
    <message>
        <source>To calculate how much actual rigging height is going to be available considering production-specific pre-riggs and chain motors.</source>
        <translation>Per calcolare l’altezza di rigging effettivamente disponibile, tenendo conto dei pre-rig e dei paranchi a catena della produzione.</translation>
    </message>
    <message>
        <source>Any specialties or unusual restrictions, such as &quot;all points have to be bridled&quot; or &quot;no access to catwalk, all points have to be set via cherry picker&quot;.</source>
        <translation>Particolarità o limitazioni insolite, ad esempio «tutti i punti vanno realizzati con bridle» o «nessun accesso alla passerella tecnica, tutti i punti vanno posati con piattaforma aerea».</translation>
    </message>
    <message>
        <source>labelKorvelCaptionSmall</source>
        <translation>labelKorvelCaptionSmall</translation>
    </message>
    <message>
        <source>Loading dock, %1</source>
        <translation>Banchina di carico, %1</translation>
    </message>
    <message>
        <source>Rigging, %1</source>
        <translation>Rigging, %1</translation>
    </message>
</context>
</TS>
