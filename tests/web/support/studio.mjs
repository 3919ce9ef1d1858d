// The studio tests' harness: a vexplot --serve of their own per test, Debian's Chromium through
// playwright-core, and raw HTTP and WebSocket access with chosen headers for the tests that play an
// attacker rather than the page. Everything started here is ended when the test file ends, whether
// the test stopped it or failed half way (a leftover server would hold its port and the CTest
// run's time).
import { execFile, spawn } from 'node:child_process';
import { mkdir, mkdtemp, readFile, rm } from 'node:fs/promises';
import http from 'node:http';
import os from 'node:os';
import path from 'node:path';
import { after } from 'node:test';
import { fileURLToPath } from 'node:url';
import { chromium } from 'playwright-core';
import { WebSocket } from 'ws';

const here = path.dirname(fileURLToPath(import.meta.url));

/** The repository (CTest sets VEX_TEST_SOURCE_DIR; run by hand, the one this file is in). */
export const sourceDir = process.env.VEX_TEST_SOURCE_DIR || path.resolve(here, '../../..');
/** The vexplot under test (CTest sets VEXPLOT to the one it built), absolute: servers run elsewhere. */
export const vexplotPath = path.resolve(
    process.env.VEXPLOT || path.join(sourceDir, 'build/bin/vexplot'),
);
/** Where tests leave screenshots and other files worth looking at after a run. */
export const artifactsDir =
    process.env.STUDIO_ARTIFACTS || path.join(sourceDir, 'build/studio-artifacts');
/** Debian's Chromium: the tests never use a browser of playwright's own. */
export const chromiumPath = '/usr/bin/chromium';
// The machine's network is closed: without these Chromium waits on name lookups and updates.
export const chromiumArgs = [
    '--headless=new',
    '--no-sandbox',
    '--disable-gpu',
    '--disable-quic',
    '--no-first-run',
    '--disable-background-networking',
    '--disable-component-update',
    '--disable-sync',
];

// Generous for 2 shared cores busy with a build: a server draws its first picture in well under a
// second when the machine is idle.
const startTimeoutMs = 30_000;
const stopTimeoutMs = 15_000;
const firstPictureTimeoutMs = 30_000;
const requestTimeoutMs = 10_000;
// What a failure message quotes of a server's output: its end, where the reason is.
const outputQuoteChars = 8_000;

// ---------------------------------------------------------------------------------------------
// Clean-up of everything started, however a test ends.

const cleanups = new Set();
const leftoverChildren = new Set();

function onCleanup(fn) {
    cleanups.add(fn);
    return () => cleanups.delete(fn);
}

// Under `node --test` the runner's hook ends everything after the file's tests (registered here,
// at the top level: called inside a test, it would belong to that test alone); a script (the
// benchmark) calls cleanUp() itself. Whatever is left when the process exits is killed.
if (process.env.NODE_TEST_CONTEXT || process.execArgv.includes('--test')) after(cleanUp);
process.once('exit', () => {
    for (const child of leftoverChildren) child.kill('SIGKILL');
});

/** Ends every server and browser still running and removes the temporary folders. */
export async function cleanUp() {
    const pending = [...cleanups];
    cleanups.clear();
    const results = await Promise.allSettled(pending.map((fn) => fn()));
    const failed = results.filter((r) => r.status === 'rejected').map((r) => r.reason);
    // A server that had to be killed here is a failure of the test that left it, but the others
    // are cleaned up first.
    if (failed.length > 0) throw failed[0];
}

function quote(text) {
    const tail = text.length > outputQuoteChars ? '...' + text.slice(-outputQuoteChars) : text;
    return tail.trim() === '' ? '(nothing)' : tail.trimEnd();
}

function timeout(ms, what) {
    let timer;
    const promise = new Promise((_, reject) => {
        timer = setTimeout(() => reject(new Error(`${what} within ${ms} ms`)), ms);
    });
    return { promise, cancel: () => clearTimeout(timer) };
}

// ---------------------------------------------------------------------------------------------
// The server.

/** A temporary folder that is removed when the test file ends. */
export async function temporaryFolder(prefix = 'vexplot-studio-') {
    const dir = await mkdtemp(path.join(os.tmpdir(), prefix));
    onCleanup(() => rm(dir, { recursive: true, force: true }));
    return dir;
}

/**
 * Starts `vexplot --serve 127.0.0.1:0 --root CWD ...args` in `cwd` (by default a fresh temporary
 * folder) and resolves once it printed its address. stop() sends SIGINT and resolves when it
 * exited with status 0.
 */
export async function startStudio({ args = [], cwd, env, timeoutMs = startTimeoutMs } = {}) {
    cwd ??= await temporaryFolder();
    const rootArgs = args.includes('--root') ? [] : ['--root', cwd];
    const fullArgs = ['--serve', '127.0.0.1:0', ...rootArgs, ...args];
    const child = spawn(vexplotPath, fullArgs, {
        cwd,
        env: { ...process.env, ...env },
        stdio: ['ignore', 'pipe', 'pipe'],
    });
    leftoverChildren.add(child);
    let output = '';
    // stdout up to the address line, to find it in.
    let stdout = '';
    let addressSeen = false;
    const exited = new Promise((resolve) => {
        child.once('error', (error) => resolve({ code: null, signal: null, error }));
        child.once('exit', (code, signal) => resolve({ code, signal }));
    });
    exited.then(() => leftoverChildren.delete(child));
    child.stdout.setEncoding('utf8');
    child.stderr.setEncoding('utf8');
    // Only the end of a long output is kept: a failure message quotes no more.
    const keep = (s) => {
        output += s;
        if (output.length > 4 * outputQuoteChars) output = output.slice(-2 * outputQuoteChars);
    };
    child.stdout.on('data', (s) => {
        keep(s);
        if (!addressSeen) stdout += s;
    });
    child.stderr.on('data', keep);
    const command = `${vexplotPath} ${fullArgs.join(' ')}`;
    const describeExit = ({ code, signal, error }) => {
        if (error) return `could not be started (${error.message})`;
        return signal ? `was killed by ${signal}` : `exited with status ${code}`;
    };

    let stopping = null;
    // A test that stops its server sees the outcome itself; the clean-up stops only the ones left.
    let forget = () => {};
    const stop = (timeoutMs = stopTimeoutMs) => {
        forget();
        stopping ??= (async () => {
            if (child.exitCode === null && child.signalCode === null) child.kill('SIGINT');
            const limit = timeout(timeoutMs, 'no exit');
            let status;
            try {
                status = await Promise.race([exited, limit.promise]);
            } catch {
                child.kill('SIGKILL');
                await exited;
                throw new Error(
                    `${command} did not exit within ${timeoutMs} ms of SIGINT and was killed; ` +
                        `its output:\n${quote(output)}`,
                );
            } finally {
                limit.cancel();
            }
            if (status.code !== 0) {
                throw new Error(
                    `${command} ${describeExit(status)} on SIGINT; its output:\n${quote(output)}`,
                );
            }
        })();
        return stopping;
    };
    forget = onCleanup(() => stop());

    const addressLine = /^vexplot: the studio is at (http:\/\/\S+)$/m;
    const started = new Promise((resolve) => {
        const look = () => {
            const m = addressLine.exec(stdout);
            if (m) {
                addressSeen = true;
                child.stdout.off('data', look);
                resolve(m[1]);
            }
        };
        child.stdout.on('data', look);
    });
    const limit = timeout(timeoutMs, 'no address printed');
    try {
        const url = await Promise.race([
            started,
            exited.then((status) => {
                throw new Error(describeExit(status));
            }),
            limit.promise,
        ]);
        const parsed = new URL(url);
        return {
            url,
            origin: parsed.origin,
            port: Number(parsed.port),
            token: parsed.searchParams.get('token'),
            cwd,
            child,
            pid: child.pid,
            output: () => output,
            stop,
        };
    } catch (error) {
        forget();
        child.kill('SIGKILL');
        await exited;
        throw new Error(`${command}: ${error.message}; its output:\n${quote(output)}`);
    } finally {
        limit.cancel();
    }
}

/** The server's resident memory in KiB (VmRSS of /proc/PID/status). */
export async function residentKiB(pid) {
    const status = await readFile(`/proc/${pid}/status`, 'utf8');
    const m = /^VmRSS:\s+(\d+) kB$/m.exec(status);
    if (!m) throw new Error(`no VmRSS in /proc/${pid}/status`);
    return Number(m[1]);
}

// ---------------------------------------------------------------------------------------------
// The browser and the page.

/** Debian's Chromium, headless, closed when the test file ends. */
export async function launchBrowser() {
    const browser = await chromium.launch({
        executablePath: chromiumPath,
        args: chromiumArgs,
        timeout: startTimeoutMs,
    });
    onCleanup(() => browser.close());
    return browser;
}

/**
 * A page of its own (a new browser context) at the studio's address, resolved once the view has
 * drawn its first picture. The page's console and errors are kept on page.studioLog for failure
 * messages.
 */
export async function openStudio(
    browser,
    studio,
    { width = 1200, height = 800, timeoutMs = firstPictureTimeoutMs } = {},
) {
    const context = await browser.newContext({ viewport: { width, height } });
    onCleanup(() => context.close());
    const page = await context.newPage();
    const log = [];
    page.studioLog = log;
    page.on('console', (m) => log.push(`console.${m.type()}: ${m.text()}`));
    page.on('pageerror', (e) => log.push(`page error: ${e.message}`));
    page.on('requestfailed', (r) =>
        log.push(`request failed: ${r.url()} (${r.failure()?.errorText})`),
    );
    try {
        await page.goto(studio.url, { timeout: timeoutMs });
        await page.waitForFunction(() => (window.studio?.framesDrawn ?? 0) >= 1, null, {
            timeout: timeoutMs,
        });
    } catch (error) {
        throw new Error(
            `the studio page at ${studio.origin} drew no picture within ${timeoutMs} ms ` +
                `(${error.message.split('\n')[0]}); the page's log:\n${quote(log.join('\n'))}\n` +
                `the server's output:\n${quote(studio.output())}`,
        );
    }
    return page;
}

/** Saves a screenshot of the page as STUDIO_ARTIFACTS/NAME.png and returns its path. */
export async function screenshot(page, name) {
    await mkdir(artifactsDir, { recursive: true });
    const file = path.join(artifactsDir, `${name}.png`);
    await page.screenshot({ path: file });
    return file;
}

// ---------------------------------------------------------------------------------------------
// Raw HTTP and WebSocket, with whatever headers a test chooses.

/**
 * One HTTP request to the server, the path sent as given (no normalisation of `..` or `%2F`).
 * Resolves { status, headers, body: Buffer, text() }.
 */
export function httpRequest(
    studio,
    requestPath,
    { method = 'GET', headers = {}, body, timeoutMs = requestTimeoutMs } = {},
) {
    return new Promise((resolve, reject) => {
        const req = http.request(
            // A connection per request: nothing is left open between a test's requests.
            { host: '127.0.0.1', port: studio.port, method, path: requestPath, headers, agent: false },
            (res) => {
                const chunks = [];
                res.on('data', (c) => chunks.push(c));
                res.on('error', reject);
                res.on('end', () => {
                    const data = Buffer.concat(chunks);
                    resolve({
                        status: res.statusCode,
                        headers: res.headers,
                        body: data,
                        text: () => data.toString('utf8'),
                    });
                });
            },
        );
        req.setTimeout(timeoutMs, () =>
            req.destroy(new Error(`${method} ${requestPath}: no answer within ${timeoutMs} ms`)),
        );
        req.on('error', reject);
        req.end(body);
    });
}

/** Exchanges the studio's token for its cookie; resolves the Cookie header (`name=value`). */
export async function studioCookie(studio) {
    const res = await httpRequest(studio, `/?token=${studio.token}`);
    const setCookie = res.headers['set-cookie'];
    if (!setCookie?.length)
        throw new Error(
            `the token request got ${res.status} without a cookie; ` +
                `the server's output:\n${quote(studio.output())}`,
        );
    return setCookie[0].split(';')[0].trim();
}

/**
 * Opens a WebSocket to the studio (by default /ws with the server's own Origin; pass headers to
 * choose them, `cookie` to send one). Resolves a reader: { ws, messages, next(predicate, ms),
 * closed } where messages are parsed JSON objects for text and { picture: Buffer, frame, seq,
 * width, height } for pictures, and closed resolves { code, reason }. Rejects on a refused
 * upgrade with error.statusCode set.
 */
export function connectWebSocket(
    studio,
    { path: wsPath = '/ws', cookie, headers = {}, timeoutMs = requestTimeoutMs, maxPayload } = {},
) {
    // A header given as undefined is left out (no Origin at all, say).
    const allHeaders = Object.fromEntries(
        Object.entries({ Origin: studio.origin, Cookie: cookie, ...headers }).filter(
            ([, v]) => v !== undefined,
        ),
    );
    const ws = new WebSocket(`ws://127.0.0.1:${studio.port}${wsPath}`, {
        headers: allHeaders,
        handshakeTimeout: timeoutMs,
        ...(maxPayload ? { maxPayload } : {}),
    });
    onCleanup(() => ws.terminate());
    const messages = [];
    const waiters = new Set();
    const closed = new Promise((resolve) =>
        ws.on('close', (code, reason) => resolve({ code, reason: reason.toString() })),
    );
    ws.on('message', (data, isBinary) => {
        const message = isBinary ? readPicture(data) : parseText(data.toString('utf8'));
        messages.push(message);
        for (const w of waiters) w.check();
    });
    closed.then(() => {
        for (const w of waiters) w.check();
    });
    let closedState = false;
    closed.then(() => (closedState = true));

    /** The first message from index `from` on that matches; rejects on close or after ms. */
    const next = (predicate = () => true, ms = timeoutMs, from = 0) =>
        new Promise((resolve, reject) => {
            let index = from;
            const waiter = {
                check() {
                    for (; index < messages.length; index++) {
                        if (predicate(messages[index])) {
                            finish();
                            return resolve(messages[index]);
                        }
                    }
                    if (closedState) {
                        finish();
                        reject(new Error('the WebSocket closed before the message came'));
                    }
                },
            };
            const timer = setTimeout(() => {
                finish();
                const received = summarise(messages.slice(from));
                reject(new Error(`no such message within ${ms} ms; received: ${received}`));
            }, ms);
            const finish = () => {
                clearTimeout(timer);
                waiters.delete(waiter);
            };
            waiters.add(waiter);
            waiter.check();
        });

    return new Promise((resolve, reject) => {
        // send() takes a message object or text as it is (for text that is no JSON).
        const send = (m) => ws.send(typeof m === 'string' ? m : JSON.stringify(m));
        ws.once('open', () => resolve({ ws, messages, next, closed, send }));
        ws.once('unexpected-response', (req, res) => {
            const error = new Error(`WebSocket upgrade refused with ${res.statusCode}`);
            error.statusCode = res.statusCode;
            req.destroy();
            reject(error);
        });
        ws.once('error', reject);
    });
}

function parseText(text) {
    try {
        return JSON.parse(text);
    } catch {
        return { type: '(not JSON)', text };
    }
}

function readPicture(data) {
    return {
        type: 'picture',
        frame: data.readUInt32LE(0),
        seq: data.readUInt32LE(4),
        width: data.readUInt16LE(8),
        height: data.readUInt16LE(10),
        picture: data.subarray(12),
    };
}

function summarise(messages) {
    if (messages.length === 0) return '(nothing)';
    return messages
        .slice(-10)
        .map((m) => (m.type === 'picture' ? `picture ${m.frame}` : JSON.stringify(m).slice(0, 200)))
        .join('\n  ');
}

// ---------------------------------------------------------------------------------------------
// Files the studio writes.

/** The number of video frames in a movie file, counted by ffprobe. */
export function ffprobeFrames(file) {
    return new Promise((resolve, reject) => {
        execFile(
            'ffprobe',
            ['-v', 'error', '-count_frames', '-select_streams', 'v:0',
             '-show_entries', 'stream=nb_read_frames', '-of', 'csv=p=0', file],
            (error, stdout, stderr) => {
                if (error) return reject(new Error(`ffprobe ${file}: ${error.message}\n${stderr}`));
                const frames = Number.parseInt(stdout.trim(), 10);
                if (!Number.isInteger(frames))
                    return reject(new Error(`ffprobe ${file}: no frame count in "${stdout}"`));
                resolve(frames);
            },
        );
    });
}
