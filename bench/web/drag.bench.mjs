// The studio under a steady drag in Debian's Chromium: how long a pointer move takes to show on
// the canvas (the page's window.studio.latencies: from sending the view message to the picture
// that shows it being drawn) and how many pictures a second the page draws while the pointer
// keeps moving (window.studio.framesDrawn over the drag). Prints one table row per scene.
//   VEXPLOT=build/bin/vexplot node bench/web/drag.bench.mjs      (scripts/bench-studio.sh)
// BENCH_SECONDS sets each measured drag's length (default 10).
import {
    cleanUp,
    launchBrowser,
    openStudio,
    startStudio,
} from '../../tests/web/support/studio.mjs';

const scenes = [
    { name: 'demo scene', width: 800, height: 600, args: [] },
    { name: '100,000 triangles', width: 1280, height: 720, args: ['--demo-triangles', '100000'] },
];
const seconds = Number(process.env.BENCH_SECONDS || 10);
const warmUpSeconds = 2;
// The pointer moves as a mouse reports: every 16 ms (60 Hz), a few pixels at a time.
const moveIntervalMs = 16;

function percentile(sorted, p) {
    if (sorted.length === 0) return NaN;
    const rank = Math.min(sorted.length - 1, Math.max(0, Math.ceil((p / 100) * sorted.length) - 1));
    return sorted[rank];
}

// Opens the page with its view panel the frame's size: the host draws pictures as large as the
// panel (the frame's shape fitted into it), so the panel sets the pictures' size.
async function openAtFrameSize(browser, studio, scene) {
    let viewport = { width: scene.width + 400, height: scene.height + 300 };
    const page = await openStudio(browser, studio, viewport);
    const box = await page.locator('canvas#view').boundingBox();
    viewport = {
        width: viewport.width - Math.round(box.width - scene.width),
        height: viewport.height - Math.round(box.height - scene.height),
    };
    await page.setViewportSize(viewport);
    // The page tells the host its new size after a pause; the next picture has it.
    const frames = await page.evaluate(() => window.studio.framesDrawn);
    await page.waitForFunction((n) => window.studio.framesDrawn > n, frames, { timeout: 30_000 });
    return page;
}

// A steady drag of `ms` milliseconds in a circle around the view's centre; resolves what the page
// counted during it.
async function steadyDrag(page, ms) {
    const box = await page.locator('canvas#view').boundingBox();
    const cx = box.x + box.width / 2;
    const cy = box.y + box.height / 2;
    const before = await page.evaluate(() => ({
        frames: window.studio.framesDrawn,
        latencies: window.studio.latencies.length,
    }));
    await page.mouse.move(cx + 40, cy);
    await page.mouse.down();
    const started = Date.now();
    let moves = 0;
    for (let t = 0; Date.now() - started < ms; t += moveIntervalMs) {
        const angle = (t / 1000) * Math.PI;
        await page.mouse.move(cx + 40 * Math.cos(angle), cy + 40 * Math.sin(angle));
        moves += 1;
        const wait = started + t + moveIntervalMs - Date.now();
        if (wait > 0) await new Promise((r) => setTimeout(r, wait));
    }
    const after = await page.evaluate(() => ({
        frames: window.studio.framesDrawn,
        latencies: window.studio.latencies.slice(),
    }));
    const elapsed = Date.now() - started;
    await page.mouse.up();
    return {
        elapsedMs: elapsed,
        moves,
        pictures: after.frames - before.frames,
        latencies: after.latencies.slice(before.latencies),
    };
}

async function measure(browser, scene) {
    const size = `${scene.width}x${scene.height}`;
    const studio = await startStudio({ args: ['--size', size, ...scene.args] });
    try {
        const page = await openAtFrameSize(browser, studio, scene);
        const canvas = await page.locator('canvas#view').boundingBox();
        await steadyDrag(page, warmUpSeconds * 1000);
        await new Promise((r) => setTimeout(r, 500));
        const run = await steadyDrag(page, seconds * 1000);
        const sorted = run.latencies.slice().sort((a, b) => a - b);
        return {
            scene: scene.name,
            frame: size,
            panel: `${Math.round(canvas.width)}x${Math.round(canvas.height)}`,
            fps: run.pictures / (run.elapsedMs / 1000),
            median: percentile(sorted, 50),
            p95: percentile(sorted, 95),
            pictures: run.pictures,
            moves: run.moves,
            seconds: run.elapsedMs / 1000,
        };
    } finally {
        await studio.stop();
    }
}

const browser = await launchBrowser();
const rows = [];
try {
    for (const scene of scenes) rows.push(await measure(browser, scene));
} finally {
    await cleanUp();
}

const header = ['scene', 'frame', 'view panel', 'pictures/s', 'latency median ms',
    'latency p95 ms', 'pictures', 'moves', 's'];
const cells = rows.map((r) => [
    r.scene,
    r.frame,
    r.panel,
    r.fps.toFixed(1),
    r.median.toFixed(1),
    r.p95.toFixed(1),
    String(r.pictures),
    String(r.moves),
    r.seconds.toFixed(1),
]);
const widths = header.map((h, i) => Math.max(h.length, ...cells.map((c) => c[i].length)));
const line = (c) => '| ' + c.map((x, i) => x.padEnd(widths[i])).join(' | ') + ' |';
console.log(line(header));
console.log('|' + widths.map((w) => '-'.repeat(w + 2)).join('|') + '|');
for (const c of cells) console.log(line(c));
