<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>chimewell::texts</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Installieren</translation>
    </message>
    <message>
        <source>Installed</source>
        <translation>Installiert</translation>
    </message>
    <message>
        <source>No recent activity yet</source>
        <translation>Noch keine Aktivität</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>Systemeinstellungen öffnen</translation>
    </message>
    <message>
        <source>Open Notification Settings</source>
        <translation>Benachrichtigungseinstellungen öffnen</translation>
    </message>
    <message>
        <source>Play a sample alert</source>
        <translation>Beispielhinweis abspielen</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Anhören</translation>
    </message>
    <message>
        <source>Preview the %1 alert</source>
        <translation>Hinweis „%1“ anhören</translation>
    </message>
    <message>
        <source>Sound for %1</source>
        <translation>Ton für „%1“</translation>
    </message>
    <message>
        <source>Enable %1</source>
        <translation>„%1“ einschalten</translation>
    </message>
    <message>
        <source>Show banner for %1</source>
        <translation>Banner für „%1“ anzeigen</translation>
    </message>
    <message>
        <source>Speak for %1</source>
        <translation>„%1“ ansagen</translation>
    </message>
    <message>
        <source>Phrase for %1</source>
        <translation>Ansagetext für „%1“</translation>
    </message>
    <message>
        <source>Voice for %1</source>
        <translation>Stimme für „%1“</translation>
    </message>
    <message>
        <source>Read aloud for %1</source>
        <translation>„%1“ vorlesen</translation>
    </message>
    <message>
        <source>Options for %1</source>
        <translation>Optionen für „%1“</translation>
    </message>
    <message>
        <source>Open the agent&apos;s session: %1</source>
        <translation>Sitzung des Agenten öffnen: %1</translation>
    </message>
    <message>
        <source>Install %1</source>
        <translation>Hooks für %1 installieren</translation>
    </message>
    <message>
        <source>Installed: %1</source>
        <translation>Installiert: %1</translation>
    </message>
    <message>
        <source>Update %1 hooks</source>
        <translation>Hooks für %1 aktualisieren</translation>
    </message>
    <message>
        <source>Uninstall %1</source>
        <translation>Hooks für %1 deinstallieren</translation>
    </message>
    <message>
        <source>Restore the original settings of %1</source>
        <translation>Ursprüngliche Einstellungen von %1 wiederherstellen</translation>
    </message>
    <message>
        <source>Reveal %1 in Finder</source>
        <translation>%1 im Finder zeigen</translation>
    </message>
    <message>
        <source>Show %1 in the file manager</source>
        <translation>%1 in der Dateiverwaltung anzeigen</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
    <message>
        <source>Chimewell</source>
        <translation>Chimewell</translation>
    </message>
    <message>
        <source>Listening</source>
        <translation>Empfangsbereit</translation>
    </message>
    <message>
        <source>Setup needed</source>
        <translation>Einrichtung nötig</translation>
    </message>
    <message>
        <source>Finish setup</source>
        <translation>Einrichtung abschließen</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>%n more in Settings ▸ Recent</source>
        <translation>%n weitere in Einstellungen ▸ Verlauf</translation>
    </message>
    <message>
        <source>Mute all</source>
        <translation>Alles stummschalten</translation>
    </message>
    <message>
        <source>Other events in Settings.</source>
        <translation>Weitere Ereignisse in den Einstellungen.</translation>
    </message>
    <message>
        <source>Open Settings…</source>
        <translation>Einstellungen öffnen&#xa0;…</translation>
    </message>
    <message>
        <source>Open Chimewell</source>
        <translation>Chimewell öffnen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Quit — Chimewell stays closed until you open it again</source>
        <translation>Beenden – Chimewell bleibt geschlossen, bis es wieder geöffnet wird</translation>
    </message>
    <message>
        <source>Open the agent&apos;s session</source>
        <translation>Sitzung des Agenten öffnen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>BETA</source>
        <translation>BETA</translation>
    </message>
    <message>
        <source>This integration is newer and less tested than Claude Code.</source>
        <translation>Diese Anbindung ist neuer und weniger erprobt als die von Claude Code.</translation>
    </message>
    <message>
        <source>Chimewell Settings</source>
        <translation>Chimewell-Einstellungen</translation>
    </message>
    <message>
        <source>Sections</source>
        <translation>Bereiche</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>Ereignisse</translation>
    </message>
    <message>
        <source>Providers</source>
        <translation>Agenten</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Choose which agent state changes notify you, and how.</source>
        <translation>Hier wird festgelegt, welche Zustandsänderungen der Agenten gemeldet werden und wie.</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>Show banner</source>
        <translation>Banner anzeigen</translation>
    </message>
    <message>
        <source>Speak</source>
        <translation>Ansagen</translation>
    </message>
    <message>
        <source>Announce this event with a spoken voice (off by default). Turn it on to choose the phrase and voice.</source>
        <translation>Dieses Ereignis mit einer Stimme ansagen (standardmäßig aus). Nach dem Einschalten lassen sich Text und Stimme wählen.</translation>
    </message>
    <message>
        <source>Spoken aloud when this event fires. Leave the text blank for the default; use Preview to hear the voice. Add more voices in System Settings ▸ Accessibility ▸ Spoken Content.</source>
        <translation>Wird bei diesem Ereignis gesprochen. Bleibt das Feld leer, gilt der Standardtext; „Anhören“ spielt die Stimme vor. Weitere Stimmen gibt es unter Systemeinstellungen ▸ Bedienungshilfen ▸ Gesprochene Inhalte.</translation>
    </message>
    <message>
        <source>Spoken aloud when this event fires. Leave the text blank for the default; use Preview to hear the voice. Add more voices by installing them for Speech Dispatcher.</source>
        <translation>Wird bei diesem Ereignis gesprochen. Bleibt das Feld leer, gilt der Standardtext; „Anhören“ spielt die Stimme vor. Weitere Stimmen lassen sich für Speech Dispatcher installieren.</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Stimme</translation>
    </message>
    <message>
        <source>System default</source>
        <translation>Systemstandard</translation>
    </message>
    <message>
        <source>Reminders</source>
        <translation>Erinnerungen</translation>
    </message>
    <message>
        <source>Keep reminding me while the agent waits</source>
        <translation>Weiter erinnern, solange der Agent wartet</translation>
    </message>
    <message>
        <source>If you miss the first alert, Chimewell re-alerts until you respond in the session (detected automatically) or the limit is reached.</source>
        <translation>Bleibt der erste Hinweis unbemerkt, wiederholt Chimewell ihn, bis in der Sitzung reagiert wird (wird automatisch erkannt) oder die Höchstzahl erreicht ist.</translation>
    </message>
    <message>
        <source>Repeat every</source>
        <translation>Wiederholen nach</translation>
    </message>
    <message>
        <source>Custom…</source>
        <translation>Eigener Wert&#xa0;…</translation>
    </message>
    <message>
        <source>30 seconds</source>
        <translation>30 Sekunden</translation>
    </message>
    <message>
        <source>1 minute</source>
        <translation>1 Minute</translation>
    </message>
    <message>
        <source>2 minutes</source>
        <translation>2 Minuten</translation>
    </message>
    <message>
        <source>3 minutes</source>
        <translation>3 Minuten</translation>
    </message>
    <message>
        <source>5 minutes</source>
        <translation>5 Minuten</translation>
    </message>
    <message>
        <source>Every %n minute</source>
        <translation>Abstand: %n Minute</translation>
    </message>
    <message numerus="yes">
        <source>Every %n minutes</source>
        <translation>
            <numerusform>Abstand: %n Minute</numerusform>
            <numerusform>Abstand: %n Minuten</numerusform>
        </translation>
    </message>
    <message>
        <source>Up to %n reminder</source>
        <translation>Höchstens %n Erinnerung</translation>
    </message>
    <message numerus="yes">
        <source>Up to %n reminders</source>
        <translation>
            <numerusform>Höchstens %n Erinnerung</numerusform>
            <numerusform>Höchstens %n Erinnerungen</numerusform>
        </translation>
    </message>
    <message>
        <source>Install hooks so your agent tells Chimewell when its state changes.</source>
        <translation>Über Hooks melden die Agenten ihre Zustandsänderungen an Chimewell.</translation>
    </message>
    <message>
        <source>Not installed</source>
        <translation>Nicht installiert</translation>
    </message>
    <message>
        <source>Update available</source>
        <translation>Update verfügbar</translation>
    </message>
    <message>
        <source>Coming soon</source>
        <translation>Demnächst</translation>
    </message>
    <message>
        <source>This provider is coming soon.</source>
        <translation>Die Unterstützung für diesen Agenten folgt demnächst.</translation>
    </message>
    <message>
        <source>Codex alerts you when a turn completes (no ‘waiting for input’ signal). Codex allows only one notify program — if you already use one, remove it first or Install will stop to avoid overwriting it.</source>
        <translation>Codex meldet, wenn ein Durchgang abgeschlossen ist (kein Signal für „Wartet auf Eingabe“). Codex erlaubt nur ein einziges notify-Programm – ein bereits eingetragenes zuerst entfernen, sonst bricht die Installation ab, um es nicht zu überschreiben.</translation>
    </message>
    <message>
        <source>Cursor alerts you when the agent finishes. A ‘waiting for input’ signal isn’t available in Cursor’s hooks yet.</source>
        <translation>Cursor meldet, wenn der Agent fertig ist. Ein Signal für „Wartet auf Eingabe“ gibt es in den Hooks von Cursor noch nicht.</translation>
    </message>
    <message>
        <source>An update adds the hook that powers ‘keep reminding me’. Click Update Hooks, then restart your agent session.</source>
        <translation>Ein Update ergänzt den Hook, auf dem „Weiter erinnern“ beruht. Auf „Hooks aktualisieren“ klicken und danach die Agentensitzung neu starten.</translation>
    </message>
    <message>
        <source>Hooks are missing from this file. Install them again.</source>
        <translation>In dieser Datei fehlen die Hooks. Sie müssen erneut installiert werden.</translation>
    </message>
    <message>
        <source>Update Hooks</source>
        <translation>Hooks aktualisieren</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Deinstallieren</translation>
    </message>
    <message>
        <source>Restore Original</source>
        <translation>Original wiederherstellen</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Finder zeigen</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>In Dateiverwaltung anzeigen</translation>
    </message>
    <message>
        <source>Nothing to reveal yet — %1 doesn’t exist. It’s created when you Install (%2 may not be set up on this Mac).</source>
        <translation>Noch nichts anzuzeigen – %1 existiert nicht. Die Datei entsteht bei der Installation (%2 ist auf diesem Mac möglicherweise nicht eingerichtet).</translation>
    </message>
    <message>
        <source>Nothing to show yet — %1 doesn’t exist. It’s created when you Install (%2 may not be set up on this computer).</source>
        <translation>Noch nichts anzuzeigen – %1 existiert nicht. Die Datei entsteht bei der Installation (%2 ist auf diesem Computer möglicherweise nicht eingerichtet).</translation>
    </message>
    <message>
        <source>Installed. Restart your agent session to pick up the hooks.</source>
        <translation>Installiert. Damit die Hooks wirken, die Agentensitzung neu starten.</translation>
    </message>
    <message>
        <source>Uninstalled. Your other hooks were left untouched.</source>
        <translation>Deinstalliert. Andere Hooks wurden nicht verändert.</translation>
    </message>
    <message>
        <source>Restored the original settings from backup.</source>
        <translation>Die ursprünglichen Einstellungen wurden aus der Sicherung wiederhergestellt.</translation>
    </message>
    <message>
        <source>Install %1 hooks?</source>
        <translation>Hooks für %1 installieren?</translation>
    </message>
    <message>
        <source>Chimewell will add its hooks to %1. A timestamped backup of the file is written first, and only Chimewell&apos;s own entries are added.</source>
        <translation>Chimewell fügt seine Hooks in %1 ein. Zuvor wird eine Sicherung der Datei mit Zeitstempel angelegt, und nur die Einträge von Chimewell werden hinzugefügt.</translation>
    </message>
    <message>
        <source>Update hooks?</source>
        <translation>Hooks aktualisieren?</translation>
    </message>
    <message>
        <source>Chimewell will update its hooks in %1. A timestamped backup of the file is written first, and only Chimewell&apos;s own entries are changed.</source>
        <translation>Chimewell aktualisiert seine Hooks in %1. Zuvor wird eine Sicherung der Datei mit Zeitstempel angelegt, und nur die Einträge von Chimewell werden geändert.</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Uninstall hooks?</source>
        <translation>Hooks deinstallieren?</translation>
    </message>
    <message>
        <source>Chimewell will remove only its own hooks from %1. A timestamped backup of the file is written first.</source>
        <translation>Chimewell entfernt nur seine eigenen Hooks aus %1. Zuvor wird eine Sicherung der Datei mit Zeitstempel angelegt.</translation>
    </message>
    <message>
        <source>Restore original settings?</source>
        <translation>Ursprüngliche Einstellungen wiederherstellen?</translation>
    </message>
    <message>
        <source>This replaces %1 with the backup taken before Chimewell first modified it. Any changes to that file since then will be lost.</source>
        <translation>Dies ersetzt %1 durch die Sicherung, die vor der ersten Änderung durch Chimewell angelegt wurde. Alle seither vorgenommenen Änderungen an dieser Datei gehen verloren.</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Entries to be added</source>
        <translation>Einträge, die hinzukommen</translation>
    </message>
    <message>
        <source>Entries to be removed</source>
        <translation>Einträge, die entfernt werden</translation>
    </message>
    <message>
        <source>Entries to be changed</source>
        <translation>Einträge, die sich ändern</translation>
    </message>
    <message>
        <source>The file holds these entries already.</source>
        <translation>Die Datei enthält diese Einträge bereits.</translation>
    </message>
    <message>
        <source>The most recent events Chimewell alerted you about (this session).</source>
        <translation>Die letzten Ereignisse, auf die Chimewell hingewiesen hat (seit dem Start).</translation>
    </message>
    <message>
        <source>Alerts from your agents will show up here.</source>
        <translation>Hier erscheinen die Hinweise der Agenten.</translation>
    </message>
    <message>
        <source>Open Session</source>
        <translation>Sitzung öffnen</translation>
    </message>
    <message>
        <source>Jump to the agent&apos;s terminal (or reveal its folder)</source>
        <translation>Zum Terminal des Agenten wechseln (oder dessen Ordner anzeigen)</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Benachrichtigungen</translation>
    </message>
    <message>
        <source>Mute all notifications</source>
        <translation>Alle Benachrichtigungen stummschalten</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Beim Anmelden starten</translation>
    </message>
    <message>
        <source>Permission</source>
        <translation>Berechtigung</translation>
    </message>
    <message>
        <source>Diagnostics</source>
        <translation>Diagnose</translation>
    </message>
    <message>
        <source>Checks that macOS will show Chimewell banners.</source>
        <translation>Prüft, ob macOS die Banner von Chimewell anzeigt.</translation>
    </message>
    <message>
        <source>Checks that your desktop will show Chimewell banners.</source>
        <translation>Prüft, ob der Desktop die Banner von Chimewell anzeigt.</translation>
    </message>
    <message>
        <source>Test banner permission</source>
        <translation>Banner-Berechtigung testen</translation>
    </message>
    <message>
        <source>Banners are turned off in System Settings — sound and voice still work.</source>
        <translation>Banner sind in den Systemeinstellungen ausgeschaltet – Ton und Ansage funktionieren weiterhin.</translation>
    </message>
    <message>
        <source>Banners are turned off in your desktop&apos;s settings — sound and voice still work.</source>
        <translation>Banner sind in den Einstellungen des Desktops ausgeschaltet – Ton und Ansage funktionieren weiterhin.</translation>
    </message>
    <message>
        <source>Runs a real ‘finished’ event through sound, voice, and banner — respects your Events settings and Mute All.</source>
        <translation>Löst ein echtes Ereignis „Fertig“ mit Ton, Ansage und Banner aus – gemäß den Einstellungen unter „Ereignisse“ und „Alles stummschalten“.</translation>
    </message>
    <message>
        <source>Setup</source>
        <translation>Einrichtung</translation>
    </message>
    <message>
        <source>Show setup walkthrough…</source>
        <translation>Geführte Einrichtung anzeigen&#xa0;…</translation>
    </message>
    <message>
        <source>Replay the guided setup — allow notifications, connect Claude Code, and pick your sounds. You can skip any step.</source>
        <translation>Die geführte Einrichtung wiederholen – Benachrichtigungen erlauben, Claude Code verbinden und Töne auswählen. Jeder Schritt lässt sich überspringen.</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Unterstützung</translation>
    </message>
    <message>
        <source>Chimewell is free. If it&apos;s earned a place in your toolkit, toss a coin to its developer to keep it maintained, updated, and ad-free.</source>
        <translation>Chimewell ist kostenlos. Wer es nicht mehr missen möchte, kann mit einer kleinen Spende dazu beitragen, dass es gepflegt, aktuell und werbefrei bleibt.</translation>
    </message>
    <message>
        <source>Support Chimewell</source>
        <translation>Chimewell unterstützen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Privacy Policy</source>
        <translation>Datenschutzerklärung</translation>
    </message>
    <message>
        <source>Terms</source>
        <translation>Nutzungsbedingungen</translation>
    </message>
    <message>
        <source>Allowed</source>
        <translation>Erlaubt</translation>
    </message>
    <message>
        <source>Allowed (provisional)</source>
        <translation>Erlaubt (vorläufig)</translation>
    </message>
    <message>
        <source>Denied — sound will still play</source>
        <translation>Abgelehnt – Töne sind trotzdem zu hören</translation>
    </message>
    <message>
        <source>Not requested yet</source>
        <translation>Noch nicht angefragt</translation>
    </message>
    <message>
        <source>Unavailable in this build</source>
        <translation>In dieser Version nicht verfügbar</translation>
    </message>
    <message>
        <source>Unavailable — no notification service is running</source>
        <translation>Nicht verfügbar – es läuft kein Benachrichtigungsdienst</translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation>Willkommen</translation>
    </message>
    <message>
        <source>Skip setup</source>
        <translation>Einrichtung überspringen</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Welcome to Chimewell</source>
        <translation>Willkommen bei Chimewell</translation>
    </message>
    <message>
        <source>Know the moment your AI coding agent finishes or needs you — with a sound, an optional spoken alert, and a native banner.</source>
        <translation>Sofort wissen, wann der KI-Programmieragent fertig ist oder eine Eingabe braucht – durch einen Ton, auf Wunsch eine Ansage und ein Banner des Systems.</translation>
    </message>
    <message>
        <source>Want a quick ~1-minute setup? We&apos;ll allow notifications, connect Claude Code, and pick your sounds. Prefer to explore on your own? Hit **Skip setup** any time — you can replay this later from Settings ▸ General.</source>
        <translation>Die Einrichtung dauert etwa eine Minute: Benachrichtigungen erlauben, Claude Code verbinden, Töne auswählen. Lieber selbst erkunden? **Einrichtung überspringen** ist jederzeit möglich – unter Einstellungen ▸ Allgemein lässt sie sich später wiederholen.</translation>
    </message>
    <message>
        <source>How it works</source>
        <translation>So funktioniert es</translation>
    </message>
    <message>
        <source>A tiny hook in your agent pings Chimewell whenever the agent changes state. No polling, no network.</source>
        <translation>Ein winziger Hook im Agenten meldet Chimewell jede Zustandsänderung. Ohne Abfragen, ohne Netzwerk.</translation>
    </message>
    <message>
        <source>Your agent</source>
        <translation>Agent</translation>
    </message>
    <message>
        <source>Hook</source>
        <translation>Hook</translation>
    </message>
    <message>
        <source>Allow notifications</source>
        <translation>Benachrichtigungen erlauben</translation>
    </message>
    <message>
        <source>Banners let you jump straight back to the session. Sound and voice work either way, so this is optional.</source>
        <translation>Ein Klick auf ein Banner führt direkt zurück zur Sitzung. Ton und Ansage funktionieren auch ohne, daher ist dieser Schritt optional.</translation>
    </message>
    <message>
        <source>Status:</source>
        <translation>Status:</translation>
    </message>
    <message>
        <source>Allow Notifications</source>
        <translation>Benachrichtigungen erlauben</translation>
    </message>
    <message>
        <source>No problem — sound and voice still work. You can enable banners later in System Settings.</source>
        <translation>Kein Problem – Ton und Ansage funktionieren trotzdem. Banner lassen sich später in den Systemeinstellungen einschalten.</translation>
    </message>
    <message>
        <source>No problem — sound and voice still work. You can enable banners later in your desktop&apos;s settings.</source>
        <translation>Kein Problem – Ton und Ansage funktionieren trotzdem. Banner lassen sich später in den Einstellungen des Desktops einschalten.</translation>
    </message>
    <message>
        <source>Connect your agents</source>
        <translation>Agenten verbinden</translation>
    </message>
    <message>
        <source>Install hooks so your coding agents tell Chimewell when they finish or need you. Install only the ones you use — you can change this anytime in Settings.</source>
        <translation>Über installierte Hooks melden die Agenten, wann sie fertig sind oder eine Eingabe brauchen. Nur die tatsächlich genutzten installieren – in den Einstellungen lässt sich das jederzeit ändern.</translation>
    </message>
    <message>
        <source>Sounds &amp; voice</source>
        <translation>Töne und Ansagen</translation>
    </message>
    <message>
        <source>Choose distinct sounds so you can tell — without looking — whether the agent finished or is waiting. Prefer a spoken announcement? Turn on “Read aloud” for either event.</source>
        <translation>Verschiedene Töne verraten – ohne hinzusehen –, ob der Agent fertig ist oder wartet. Lieber eine gesprochene Ansage? Dafür beim jeweiligen Ereignis „Vorlesen“ einschalten.</translation>
    </message>
    <message>
        <source>Read aloud</source>
        <translation>Vorlesen</translation>
    </message>
    <message>
        <source>Also announce this event in a spoken voice (off by default). Fine-tune the phrase and voice later in Settings ▸ Events.</source>
        <translation>Dieses Ereignis zusätzlich mit einer Stimme ansagen (standardmäßig aus). Text und Stimme lassen sich später unter Einstellungen ▸ Ereignisse anpassen.</translation>
    </message>
    <message>
        <source>Start Chimewell when I log in</source>
        <translation>Chimewell beim Anmelden starten</translation>
    </message>
    <message>
        <source>Keeps Chimewell in your menu bar after a restart. You can change this any time in Settings ▸ General.</source>
        <translation>Damit Chimewell auch nach einem Neustart in der Menüleiste steht. Jederzeit änderbar unter Einstellungen ▸ Allgemein.</translation>
    </message>
    <message>
        <source>Keeps Chimewell in your panel after a restart. You can change this any time in Settings ▸ General.</source>
        <translation>Damit Chimewell auch nach einem Neustart in der Systemleiste steht. Jederzeit änderbar unter Einstellungen ▸ Allgemein.</translation>
    </message>
    <message>
        <source>That&apos;s it! Chimewell lives in your menu bar. Click the **bell icon** at the top of your screen any time to open status, quick controls, or this setup again.</source>
        <translation>Das war’s! Chimewell ist nun in der Menüleiste zu finden. Ein Klick auf das **Glockensymbol** am oberen Bildschirmrand öffnet jederzeit den Status, die Schnelleinstellungen oder erneut diese Einrichtung.</translation>
    </message>
    <message>
        <source>That&apos;s it! Chimewell lives in your panel. Click the **bell icon** any time to open status, quick controls, or this setup again.</source>
        <translation>Das war’s! Chimewell ist nun in der Systemleiste zu finden. Ein Klick auf das **Glockensymbol** öffnet jederzeit den Status, die Schnelleinstellungen oder erneut diese Einrichtung.</translation>
    </message>
    <message>
        <source>Finished</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>The agent has finished</source>
        <translation>Der Agent ist fertig</translation>
    </message>
    <message>
        <source>The agent finished responding and is idle.</source>
        <translation>Der Agent hat seine Antwort abgeschlossen und ist untätig.</translation>
    </message>
    <message>
        <source>Waiting for input</source>
        <translation>Wartet auf Eingabe</translation>
    </message>
    <message>
        <source>The agent is waiting for your input</source>
        <translation>Der Agent wartet auf eine Eingabe</translation>
    </message>
    <message>
        <source>The agent is waiting for your input or a permission decision.</source>
        <translation>Der Agent wartet auf eine Eingabe oder eine Freigabe.</translation>
    </message>
    <message>
        <source>Subagent finished</source>
        <translation>Subagent fertig</translation>
    </message>
    <message>
        <source>A subagent finished</source>
        <translation>Ein Subagent ist fertig</translation>
    </message>
    <message>
        <source>A subagent completed its task.</source>
        <translation>Ein Subagent hat seine Aufgabe erledigt.</translation>
    </message>
    <message>
        <source>The agent reported an error</source>
        <translation>Der Agent meldet einen Fehler</translation>
    </message>
    <message>
        <source>The agent reported an error.</source>
        <translation>Der Agent hat einen Fehler gemeldet.</translation>
    </message>
    <message>
        <source>Tool use</source>
        <translation>Werkzeugaufruf</translation>
    </message>
    <message>
        <source>The agent is using a tool</source>
        <translation>Der Agent verwendet ein Werkzeug</translation>
    </message>
    <message>
        <source>The agent is about to use a tool.</source>
        <translation>Der Agent wird gleich ein Werkzeug verwenden.</translation>
    </message>
    <message>
        <source>Long-running task started</source>
        <translation>Lange Aufgabe gestartet</translation>
    </message>
    <message>
        <source>A long task has started</source>
        <translation>Eine lange Aufgabe hat begonnen</translation>
    </message>
    <message>
        <source>A long-running task has begun.</source>
        <translation>Eine länger dauernde Aufgabe hat begonnen.</translation>
    </message>
    <message>
        <source>Session started</source>
        <translation>Sitzung gestartet</translation>
    </message>
    <message>
        <source>A new session started</source>
        <translation>Eine neue Sitzung hat begonnen</translation>
    </message>
    <message>
        <source>A new agent session started.</source>
        <translation>Eine neue Agentensitzung hat begonnen.</translation>
    </message>
    <message>
        <source>User responded</source>
        <translation>Benutzer hat reagiert</translation>
    </message>
    <message>
        <source>You responded to the agent.</source>
        <translation>Dem Agenten wurde geantwortet.</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>Still waiting — %1</source>
        <translation>Wartet noch – %1</translation>
    </message>
    <message>
        <source>%1 (reminder)</source>
        <translation>%1 (Erinnerung)</translation>
    </message>
    <message>
        <source>Banners are working. This is a test.</source>
        <translation>Banner funktionieren. Dies ist ein Test.</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>Kein Ton</translation>
    </message>
    <message>
        <source>Could not read %1: %2</source>
        <translation>%1 konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Could not create backup: %1</source>
        <translation>Die Sicherung konnte nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>Could not restore from backup: %1</source>
        <translation>Die Sicherung konnte nicht wiederhergestellt werden: %1</translation>
    </message>
    <message>
        <source>Could not serialize settings.</source>
        <translation>Die Einstellungen konnten nicht als JSON geschrieben werden.</translation>
    </message>
    <message>
        <source>Could not encode config.toml.</source>
        <translation>config.toml konnte nicht kodiert werden.</translation>
    </message>
    <message>
        <source>The existing settings file at %1 is not valid JSON. Refusing to modify it to avoid data loss. Please fix or remove it, then try again.</source>
        <translation>Die vorhandene Einstellungsdatei %1 ist kein gültiges JSON. Um Datenverlust zu vermeiden, wird sie nicht verändert. Bitte die Datei korrigieren oder entfernen und es dann erneut versuchen.</translation>
    </message>
    <message>
        <source>The bundled chimewell-hook helper could not be found inside the app bundle.</source>
        <translation>Das mitgelieferte Hilfsprogramm chimewell-hook wurde im Programmpaket nicht gefunden.</translation>
    </message>
    <message>
        <source>The chimewell-hook helper could not be found. Please install Chimewell again.</source>
        <translation>Das Hilfsprogramm chimewell-hook wurde nicht gefunden. Bitte Chimewell erneut installieren.</translation>
    </message>
    <message>
        <source>No Chimewell backup was found to restore from.</source>
        <translation>Es wurde keine Sicherung von Chimewell gefunden, die sich wiederherstellen ließe.</translation>
    </message>
    <message>
        <source>Codex supports only a single `notify` program, and ~/.codex/config.toml already has one configured. Remove it (or chain Chimewell into it) first, then install again.</source>
        <translation>Codex unterstützt nur ein einziges `notify`-Programm, und in ~/.codex/config.toml ist bereits eines eingetragen. Bitte zuerst entfernen (oder Chimewell darin einbinden) und dann erneut installieren.</translation>
    </message>
    <message>
        <source>Failed to save settings: %1</source>
        <translation>Die Einstellungen konnten nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Launch at login could not be changed: %1</source>
        <translation>Der Start beim Anmelden konnte nicht geändert werden: %1</translation>
    </message>
    <message>
        <source>The file is not valid UTF-8.</source>
        <translation>Die Datei ist kein gültiges UTF-8.</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>Keine reguläre Datei</translation>
    </message>
    <message>
        <source>The file was changed by another program</source>
        <translation>Die Datei wurde von einem anderen Programm geändert</translation>
    </message>
    <message>
        <source>The file was changed by another program, and is kept as %1</source>
        <translation>Die Datei wurde von einem anderen Programm geändert und ist als %1 aufbewahrt</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>The chimewell-hook helper lies in a folder with a line break in its name, where no agent can call it. Please move Chimewell to another folder.</source>
        <translation>Das Hilfsprogramm chimewell-hook liegt in einem Ordner, dessen Name einen Zeilenumbruch enthält, und kann dort von keinem Agenten aufgerufen werden. Chimewell bitte in einen anderen Ordner verschieben.</translation>
    </message>
    <message>
        <source>Codex calls Chimewell through a `notify` chain of your own in ~/.codex/config.toml, which Chimewell leaves as it is. To disconnect Codex, take chimewell-hook out of that chain yourself.</source>
        <translation>Codex ruft Chimewell über eine eigene `notify`-Kette in ~/.codex/config.toml auf, die Chimewell unverändert lässt. Um Codex zu trennen, chimewell-hook dort von Hand aus der Kette nehmen.</translation>
    </message>
    <message>
        <source>These hooks call a chimewell-hook at another place, which may be gone: alerts can get lost. Click Update Hooks, then restart your agent session.</source>
        <translation>Diese Hooks rufen chimewell-hook an einem anderen Ort auf, wo es womöglich nicht mehr liegt: Hinweise können verloren gehen. Auf „Hooks aktualisieren“ klicken und danach die Agentensitzung neu starten.</translation>
    </message>
    <message>
        <source>The test banner could not be shown: banners are unavailable in this build.</source>
        <translation>Das Test-Banner konnte nicht angezeigt werden: In dieser Version sind Banner nicht verfügbar.</translation>
    </message>
    <message>
        <source>The test banner could not be shown: no notification service is running.</source>
        <translation>Das Test-Banner konnte nicht angezeigt werden: Es läuft kein Benachrichtigungsdienst.</translation>
    </message>
    <message>
        <source>Another program is writing into the file</source>
        <translation>Ein anderes Programm schreibt gerade in die Datei</translation>
    </message>
    <message>
        <source>A symbolic link leads to %1, which does not exist</source>
        <translation>Ein symbolischer Link verweist auf %1, dort ist aber nichts</translation>
    </message>
    <message>
        <source>Chimewell runs from a disk image or from where it was downloaded. Move it to the Applications folder, open it there and try again.</source>
        <translation>Chimewell läuft von einem Disk-Image oder von dort, wohin es geladen wurde. Chimewell in den Ordner „Programme“ bewegen, dort öffnen und noch einmal versuchen.</translation>
    </message>
    <message>
        <source>Mute for an hour</source>
        <translation>Eine Stunde stummschalten</translation>
    </message>
    <message>
        <source>Until %1</source>
        <translation>Bis %1</translation>
    </message>
    <message>
        <source>Disconnect all agents?</source>
        <translation>Alle Agenten trennen?</translation>
    </message>
    <message>
        <source>Chimewell will remove only its own hooks, and write a timestamped backup of each file first: %1</source>
        <translation>Chimewell entfernt nur seine eigenen Hooks und legt zuvor von jeder Datei eine Sicherung mit Zeitstempel an: %1</translation>
    </message>
    <message>
        <source>Disconnect All</source>
        <translation>Alle trennen</translation>
    </message>
    <message>
        <source>Takes Chimewell&apos;s hooks out of the files of all your agents, for example before you remove Chimewell.</source>
        <translation>Entfernt die Hooks von Chimewell aus den Dateien aller Agenten, zum Beispiel vor dem Deinstallieren von Chimewell.</translation>
    </message>
    <message>
        <source>Disconnect All…</source>
        <translation>Alle trennen&#xa0;…</translation>
    </message>
    <message>
        <source>my-project</source>
        <translation>mein-projekt</translation>
    </message>
    <message>
        <source>Hear it</source>
        <translation>Anhören</translation>
    </message>
    <message>
        <source>This is what you hear when the agent needs you.</source>
        <translation>So klingt es, wenn der Agent wartet.</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Ausprobieren</translation>
    </message>
    <message>
        <source>Show a banner now, to see where it appears.</source>
        <translation>Jetzt ein Banner zeigen, um zu sehen, wo es erscheint.</translation>
    </message>
</context>
</TS>
