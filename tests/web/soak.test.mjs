// A long session against one server: a few hundred drags through a real page, then pages that
// reload and raw WebSockets that come and go. The server's resident memory, sampled after a
// warm-up, must stay within a margin (MARGIN_KIB below, and why), and the server must still serve.
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import {
    connectWebSocket,
    launchBrowser,
    openStudio,
    residentKiB,
    startStudio,
    studioCookie,
} from './support/studio.mjs';

const WARM_UP_DRAGS = 40;
const DRAGS = 300;
const RECONNECTS = 50;
// Resident memory may grow this much from the warm-up's end to the end of the session. Measured
// on the project's machine (2 cores, Debian 12): after the warm-up the drags stay within 800 KiB;
// the page reloads then added 8 to 556 KiB in most runs, but 3.3 and 4.4 MiB in two runs of a
// freshly built tree. The server itself stayed flat when measured apart: 400 raw WebSocket
// connections that each took a snapshot and a picture, and 600 rounds of the page's files, moved
// its resident memory by 4 KiB and 0 KiB. So the margin is 6 MiB: leaking one drag picture
// (12 KiB at 400 x 300) for each of the 1,000 and more pictures drawn would still add over 10 MiB.
const MARGIN_KIB = 6 * 1024;
// AddressSanitizer keeps freed memory in quarantine: resident memory says nothing there, but the
// session still runs, for the sanitizer to see it.
const sanitized = process.env.VEX_SANITIZE === '1';

let studio;
let browser;
let page;

before(async () => {
    studio = await startStudio();
    browser = await launchBrowser();
    page = await openStudio(browser, studio, { width: 800, height: 600 });
});

after(async () => {
    await browser?.close();
    await studio?.stop();
});

const framesDrawn = () => page.evaluate(() => window.studio.framesDrawn);

// One drag as a person makes it: press on the view, move in a few steps, release.
async function drag(i) {
    const box = await page.locator('canvas#view').boundingBox();
    const x = box.x + box.width / 2;
    const y = box.y + box.height / 2;
    const dx = ((i % 7) - 3) * 15;
    const dy = ((i % 5) - 2) * 10;
    await page.mouse.move(x, y);
    await page.mouse.down({ button: i % 3 === 2 ? 'right' : 'left' });
    await page.mouse.move(x + dx, y + dy, { steps: 6 });
    await page.mouse.up({ button: i % 3 === 2 ? 'right' : 'left' });
}

// Waits until the page has its full picture after the last action (no picture for a while) and
// the server has had time to return what it can, then reads the resident memory.
async function settledResidentKiB() {
    let before = await framesDrawn();
    for (;;) {
        await new Promise((r) => setTimeout(r, 500));
        const now = await framesDrawn();
        if (now === before) break;
        before = now;
    }
    return residentKiB(studio.pid);
}

async function reloadPage() {
    await page.reload();
    await page.waitForFunction(() => window.studio?.framesDrawn >= 1, null, { timeout: 30_000 });
}

async function rawConnection(cookie, i) {
    const socket = await connectWebSocket(studio, { cookie });
    await socket.next((m) => m.type === 'snapshot');
    // The size of the page's own view, so that each connection gets a full-size picture.
    socket.send({ type: 'viewport', width: 800 - (i % 2), height: 600 });
    const picture = await socket.next((m) => m.type === 'picture');
    socket.send({ type: 'ack', frame: picture.frame });
    socket.ws.close();
    await socket.closed;
}

test('drags and reconnects by the hundred leave the server as large as it was', async (t) => {
    const cookie = await studioCookie(studio);
    for (let i = 0; i < WARM_UP_DRAGS; i++) await drag(i);
    for (let i = 0; i < 5; i++) {
        await reloadPage();
        await rawConnection(cookie, i);
    }
    const baseline = await settledResidentKiB();
    const samples = [baseline];

    const framesBefore = await framesDrawn();
    const dragsStarted = Date.now();
    for (let i = 0; i < DRAGS; i++) {
        await drag(i);
        if ((i + 1) % 100 === 0) samples.push(await settledResidentKiB());
    }
    const framesDuringDrags = (await framesDrawn()) - framesBefore;
    const dragsMs = Date.now() - dragsStarted;
    t.diagnostic(`${DRAGS} drags: ${framesDuringDrags} pictures in ${dragsMs} ms`);
    assert.ok(framesDuringDrags >= DRAGS, `${framesDuringDrags} pictures for ${DRAGS} drags`);

    const reconnectsStarted = Date.now();
    for (let i = 0; i < RECONNECTS; i++) {
        await reloadPage();
        await rawConnection(cookie, i);
        if ((i + 1) % 25 === 0) samples.push(await settledResidentKiB());
    }
    t.diagnostic(`${RECONNECTS} reloads and raw connections: ${Date.now() - reconnectsStarted} ms`);
    const growth = samples.at(-1) - baseline;
    t.diagnostic(`resident KiB: ${samples.join(' ')} (growth ${growth}, margin ${MARGIN_KIB})`);
    if (sanitized) t.diagnostic('AddressSanitizer build: the memory bound is not checked');
    else assert.ok(growth <= MARGIN_KIB, `resident memory grew by ${growth} KiB`);

    // Still serving: the page still drags, and a page of its own still opens.
    const frames = await framesDrawn();
    await drag(1);
    await page.waitForFunction((n) => window.studio.framesDrawn > n, frames, { timeout: 10_000 });
    const fresh = await openStudio(browser, studio, { width: 640, height: 480 });
    await fresh.close();
});
