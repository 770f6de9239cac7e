<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Complex name</source>
        <translation>Nom du complexe</translation>
    </message>
    <message>
        <source>Venue/room name</source>
        <translation>Lieu/salle</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ville</translation>
    </message>
    <message>
        <source>General comment</source>
        <translation>Remarque générale</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Pays</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Editing date (UTC)</source>
        <translation>Modifié le (UTC)</translation>
    </message>
    <message>
        <source>Location comment</source>
        <translation>Remarque sur l’accès</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Remarque</translation>
    </message>
    <message>
        <source>Clearance of house grid (m)</source>
        <translation>Hauteur libre sous gril (m)</translation>
    </message>
    <message>
        <source>Upload date</source>
        <translation>Mis en ligne le</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Modifié par</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::FoldingIcon</name>
    <message>
        <source>Expand venue details</source>
        <translation>Déplier les détails du lieu</translation>
    </message>
    <message>
        <source>Collapse venue details</source>
        <translation>Replier les détails du lieu</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureFullscreenDialog</name>
    <message>
        <source>Could not save file. Sorry.</source>
        <translation>Désolé, le fichier n’a pas pu être enregistré.</translation>
    </message>
    <message>
        <source>Saved &quot;%1&quot;</source>
        <translation>«&#xa0;%1&#xa0;» enregistré</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>Impossible d’écrire %1</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 existe déjà.
Voulez-vous le remplacer ?</translation>
    </message>
    <message>
        <source>Save Image As...</source>
        <translation>Enregistrer l’image sous...</translation>
    </message>
    <message>
        <source>Save Image As</source>
        <translation>Enregistrer l’image sous</translation>
    </message>
    <message>
        <source>Venue database pictures</source>
        <translation>Photos de la base de données des lieux</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Photo</translation>
    </message>
    <message>
        <source>Plus and Minus zoom, Page Up shows the next picture and Page Down the previous one, Ctrl+S saves.</source>
        <translation>Plus et Moins règlent le zoom, Page préc. affiche la photo suivante et Page suiv. la précédente, Ctrl+S enregistre.</translation>
    </message>
    <message>
        <source>Loading large image...</source>
        <translation>Chargement de la grande image...</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureNavigationButton</name>
    <message>
        <source>Previous picture</source>
        <translation>Photo précédente</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Photo suivante</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureSlider</name>
    <message>
        <source>No Image</source>
        <translation>Aucune image</translation>
    </message>
    <message>
        <source>Venue pictures</source>
        <translation>Photos du lieu</translation>
    </message>
    <message>
        <source>Show pictures full screen</source>
        <translation>Afficher les photos en plein écran</translation>
    </message>
    <message>
        <source>Image failure</source>
        <translation>Image illisible</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::TsFileOpener</name>
    <message>
        <source>File selector: </source>
        <translation>Fichier modèle : </translation>
    </message>
    <message>
        <source>Import to Tessra</source>
        <translation>Importer dans Tessra</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbCentralWidget</name>
    <message>
        <source>To conduct a targeted search, please enter search terms or single letters in the fields below and click Search. To view the complete result list, click Reset.</source>
        <translation>Pour une recherche ciblée, saisissez des termes ou des lettres ci-dessous et cliquez sur «&#xa0;Rechercher&#xa0;». «&#xa0;Réinitialiser&#xa0;» affiche la liste complète.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>Venues</source>
        <translation>Lieux</translation>
    </message>
    <message>
        <source>The venues that were found. Select one to see its details.</source>
        <translation>Les lieux trouvés. Sélectionnez-en un pour voir ses détails.</translation>
    </message>
    <message>
        <source>Sort by %1</source>
        <translation>Trier par « %1 »</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Unable to connect to server. 
Please check your internet connection.</source>
        <translation>Impossible de se connecter au serveur. 
Vérifiez votre connexion Internet.</translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation>Chargement...</translation>
    </message>
    <message>
        <source>Height of the venue table</source>
        <translation>Hauteur du tableau des lieux</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialog</name>
    <message>
        <source>Venue database</source>
        <translation>Base de données des lieux</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialogBase</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDetailsWidget</name>
    <message>
        <source>Venue details</source>
        <translation>Détails du lieu</translation>
    </message>
    <message>
        <source>Name of overall multi-venue building or campus (identical to Venue name if there is only one event venue in the building/on the campus).</source>
        <translation>Nom de l’ensemble du bâtiment ou du site qui réunit plusieurs lieux (identique au nom du lieu s’il n’y en a qu’un dans le bâtiment ou sur le site).</translation>
    </message>
    <message>
        <source>Name of the specific venue/room within the multi-venue building/campus (identical to Complex name if there is only one venue in the building).</source>
        <translation>Nom du lieu ou de la salle au sein du complexe (identique au nom du complexe s’il n’y a qu’un lieu dans le bâtiment).</translation>
    </message>
    <message>
        <source>Official address of venue.</source>
        <translation>Adresse officielle du lieu.</translation>
    </message>
    <message>
        <source>Anything that is important to know when accessing the venue, such as &quot;try to arrive before 9am to avoid terrible traffic&quot;.</source>
        <translation>Tout ce qu’il faut savoir pour accéder au lieu, par exemple «&#xa0;arriver avant 9 h pour éviter les embouteillages&#xa0;».</translation>
    </message>
    <message>
        <source>If the street address of the loading dock is not the same as the official loading dock address, please enter here.</source>
        <translation>À indiquer ici si l’adresse du quai de déchargement diffère de l’adresse officielle du quai.</translation>
    </message>
    <message>
        <source>If there are any peculiarities about the dock (e.g. &quot;difficult to reverse into&quot;, or &quot;freight elevator only&quot;), please note them here.</source>
        <translation>Notez ici les particularités du quai (p. ex. «&#xa0;accès difficile en marche arrière&#xa0;» ou «&#xa0;monte-charge uniquement&#xa0;»).</translation>
    </message>
    <message>
        <source>To calculate how much actual rigging height is going to be available considering production-specific pre-riggs and chain motors.</source>
        <translation>Pour calculer la hauteur d’accroche réellement disponible compte tenu des pré-accroches et des palans à chaîne propres à la production.</translation>
    </message>
    <message>
        <source>Any specialties or unusual restrictions, such as &quot;all points have to be bridled&quot; or &quot;no access to catwalk, all points have to be set via cherry picker&quot;.</source>
        <translation>Particularités ou contraintes inhabituelles, par exemple «&#xa0;tous les points doivent être élingués en patte d’oie&#xa0;» ou «&#xa0;pas d’accès à la passerelle, tous les points se posent à la nacelle&#xa0;».</translation>
    </message>
    <message>
        <source>labelKorvelCaptionSmall</source>
        <translation>labelKorvelCaptionSmall</translation>
    </message>
    <message>
        <source>Loading dock, %1</source>
        <translation>Quai de déchargement, %1</translation>
    </message>
    <message>
        <source>Rigging, %1</source>
        <translation>Accroche, %1</translation>
    </message>
</context>
</TS>
