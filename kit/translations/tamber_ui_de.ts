<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="8032344dab7a0d5e">
        <source>OK</source>
        <extracomment>Caption of a dialog button with the role OkRole</extracomment>
        <translation>OK</translation>
    </message>
    <message id="a30faf650f427ada">
        <source>Accept</source>
        <extracomment>Caption of a dialog button with the role AcceptRole</extracomment>
        <translation>Annehmen</translation>
    </message>
    <message id="18c4498018b6f1d1">
        <source>Done</source>
        <extracomment>Caption of a dialog button with the role DoneRole</extracomment>
        <translation>Fertig</translation>
    </message>
    <message id="37ae1dd525a0ce7a">
        <source>Cancel</source>
        <extracomment>Caption of a dialog button with the role CancelRole</extracomment>
        <translation>Abbrechen</translation>
    </message>
    <message id="f9330eba97fc373e">
        <source>Revert</source>
        <extracomment>Caption of a dialog button with the role RevertRole</extracomment>
        <translation>Zurücksetzen</translation>
    </message>
    <message id="28c3843d05fb11e9">
        <source>Close</source>
        <extracomment>Caption of a dialog button with the role CloseRole</extracomment>
        <translation>Schließen</translation>
    </message>
    <message id="b5e16992c23938d2">
        <source>Back</source>
        <extracomment>Caption of a dialog button with the role BackRole</extracomment>
        <translation>Zurück</translation>
    </message>
    <message id="a67d7bccc6d4448e">
        <source>Next</source>
        <extracomment>Caption of a dialog button with the role ForwardRole</extracomment>
        <translation>Weiter</translation>
    </message>
</context>
</TS>
