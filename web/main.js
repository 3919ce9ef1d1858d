// The studio's page: wires the modules to one connection and exposes window.studio for tests
// (docs/studio.md; the hooks are listed in the README's studio section).

import { Connection } from './connection.js';
import { Dialogs } from './dialogs.js';
import { showDownloads } from './downloads.js';
import { showFlight } from './flight.js';
import { hostMenus } from './menus.js';
import { showNotices } from './notices.js';
import { showPathCheck } from './pathcheck.js';
import { showProgress } from './progress.js';
import { Prompts } from './prompts.js';
import { View } from './view.js';
import { WindowManager } from './windows.js';

const studio = {
    state: {},
    connected: false,
    framesDrawn: 0,
    latencies: [],
};
window.studio = studio;

const connection = new Connection(studio);
const windows = new WindowManager(document.getElementById('windows'), document.getElementById('app'));
showNotices(connection);
hostMenus(studio, connection, document.getElementById('menubar'));
const view = new View(studio, connection);
new Dialogs(studio, connection, windows);
// After the dialogs: it docks its panel under the window they drew.
showPathCheck(studio, connection);
new Prompts(studio, connection, windows);
showProgress(studio, connection);
showDownloads(studio, connection);
showFlight(studio, connection);
studio.fit = () => view.fit();
connection.connect();
