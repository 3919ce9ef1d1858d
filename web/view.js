// The 3D view: the host's pictures on the canvas, the person's mouse sent back as view messages,
// and the view status under it (docs/studio.md, "Pictures" and "The page's messages").
//
// Mouse as in scientific 3D tools: left drag rotates, middle drag or Shift+left drag pans, right
// drag zooms, the wheel zooms. Movements are summed and sent at most once per animation frame, so
// a fast mouse does not queue work on the host.

const VIEWPORT_DEBOUNCE_MS = 150;
const PIXELS_PER_WHEEL_STEP = 100;
const LINES_PER_WHEEL_STEP = 3;
const HEADER_BYTES = 12;
const STATUS_FIELDS = ['psi', 'theta', 'alpha', 'width'];

// The mode a drag has, from the button pressed and Shift.
function dragMode(event) {
    if (event.button === 1 || (event.button === 0 && event.shiftKey)) return 'pan';
    if (event.button === 2) return 'zoom';
    if (event.button === 0) return 'rotate';
    return null;
}

export class View {
    constructor(studio, connection) {
        this.studio = studio;
        this.connection = connection;
        this.canvas = document.getElementById('view');
        this.panel = document.getElementById('view-panel');
        this.status = document.getElementById('view-status');
        this.context = this.canvas.getContext('2d');
        this.seq = 0;
        this.sentAt = new Map(); // seq -> performance.now() when the message went out
        this.drag = null;        // {mode, pointerId, dx, dy}
        this.wheelSteps = 0;
        this.frameRequested = false;
        this.drawing = Promise.resolve();
        this.lastPicture = null; // kept to fill the panel again when it is resized

        connection.onPicture((data) => this.receivePicture(data));
        connection.onOpen(() => this.sendViewport());
        connection.onState((changed) => {
            if (changed.has('view')) this.showStatus();
        });
        this.listenToMouse();
        this.listenToResize();
        document.getElementById('fit-button').addEventListener('click', () => this.fit());
    }

    fit() { this.connection.send({ type: 'fit' }); }

    // ---- Pictures ----

    receivePicture(data) {
        if (data.byteLength < HEADER_BYTES) return;
        const header = new DataView(data, 0, HEADER_BYTES);
        const frame = header.getUint32(0, true);
        const seq = header.getUint32(4, true);
        const blob = new Blob([new Uint8Array(data, HEADER_BYTES)], { type: 'image/jpeg' });
        // Pictures are drawn in the order they came; the server sends none before the ack.
        this.drawing = this.drawing.then(() => this.draw(blob, frame, seq));
    }

    async draw(blob, frame, seq) {
        let bitmap;
        try {
            bitmap = await createImageBitmap(blob);
        } catch {
            // A picture that does not decode is answered anyway: the host would wait forever.
            this.connection.send({ type: 'ack', frame });
            return;
        }
        this.lastPicture?.close();
        this.lastPicture = bitmap;
        this.paint();
        this.studio.framesDrawn += 1;
        this.recordLatency(seq);
        this.connection.send({ type: 'ack', frame });
    }

    // The last picture letterboxed: it keeps its shape and is centred in the panel.
    paint() {
        const bitmap = this.lastPicture;
        const { width, height } = this.canvas;
        this.context.fillStyle = '#000';
        this.context.fillRect(0, 0, width, height);
        if (!bitmap) return;
        const scale = Math.min(width / bitmap.width, height / bitmap.height);
        const w = Math.round(bitmap.width * scale);
        const h = Math.round(bitmap.height * scale);
        this.context.drawImage(bitmap, Math.floor((width - w) / 2), Math.floor((height - h) / 2), w, h);
    }

    // Each view message counts once, on the first picture that shows it: the full-quality picture
    // after a drag shows the same seq again and would count the pause as latency.
    recordLatency(seq) {
        if (seq === 0 || !this.sentAt.has(seq)) return;
        this.studio.latencies.push(performance.now() - this.sentAt.get(seq));
        for (const sent of this.sentAt.keys()) {
            if (sent <= seq) this.sentAt.delete(sent);
        }
    }

    // ---- Viewport ----

    listenToResize() {
        let timer = null;
        const observer = new ResizeObserver(() => {
            this.fitCanvas();
            clearTimeout(timer);
            timer = setTimeout(() => this.sendViewport(), VIEWPORT_DEBOUNCE_MS);
        });
        observer.observe(this.panel);
        this.fitCanvas();
    }

    panelSize() {
        return {
            width: Math.max(1, Math.floor(this.canvas.clientWidth)),
            height: Math.max(1, Math.floor(this.canvas.clientHeight)),
        };
    }

    fitCanvas() {
        const { width, height } = this.panelSize();
        if (this.canvas.width !== width || this.canvas.height !== height) {
            this.canvas.width = width;
            this.canvas.height = height;
            // The last picture, fitted to the new size, until the host sends one of that size.
            this.paint();
        }
    }

    sendViewport() {
        this.connection.send({ type: 'viewport', ...this.panelSize() });
    }

    // ---- Mouse ----

    nextSeq() {
        this.seq += 1;
        this.sentAt.set(this.seq, performance.now());
        return this.seq;
    }

    listenToMouse() {
        const canvas = this.canvas;
        canvas.addEventListener('contextmenu', (event) => event.preventDefault());
        canvas.addEventListener('mousedown', (event) => {
            // The middle button would otherwise start the browser's autoscroll.
            if (event.button === 1) event.preventDefault();
        });
        canvas.addEventListener('pointerdown', (event) => {
            const mode = dragMode(event);
            if (!mode || this.drag) return;
            event.preventDefault();
            canvas.focus();
            canvas.setPointerCapture(event.pointerId);
            this.drag = { mode, pointerId: event.pointerId, dx: 0, dy: 0, x: event.clientX, y: event.clientY };
        });
        canvas.addEventListener('pointermove', (event) => {
            const drag = this.drag;
            if (!drag || event.pointerId !== drag.pointerId) return;
            drag.dx += event.clientX - drag.x;
            drag.dy += event.clientY - drag.y;
            drag.x = event.clientX;
            drag.y = event.clientY;
            this.requestSend();
        });
        const end = (event) => {
            const drag = this.drag;
            if (!drag || event.pointerId !== drag.pointerId) return;
            this.flushDrag();
            this.connection.send({ type: 'drag', seq: this.nextSeq(), mode: drag.mode, dx: 0, dy: 0, active: false });
            this.drag = null;
        };
        canvas.addEventListener('pointerup', end);
        canvas.addEventListener('pointercancel', end);
        canvas.addEventListener('wheel', (event) => {
            event.preventDefault();
            const perStep = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? LINES_PER_WHEEL_STEP
                : event.deltaMode === WheelEvent.DOM_DELTA_PAGE ? 1 : PIXELS_PER_WHEEL_STEP;
            this.wheelSteps += event.deltaY / perStep;
            this.requestSend();
        }, { passive: false });
    }

    requestSend() {
        if (this.frameRequested) return;
        this.frameRequested = true;
        requestAnimationFrame(() => {
            this.frameRequested = false;
            this.flushDrag();
            this.flushWheel();
        });
    }

    flushDrag() {
        const drag = this.drag;
        if (!drag || (drag.dx === 0 && drag.dy === 0)) return;
        this.connection.send({ type: 'drag', seq: this.nextSeq(), mode: drag.mode, dx: drag.dx, dy: drag.dy, active: true });
        drag.dx = 0;
        drag.dy = 0;
    }

    // Whole wheel steps only; a touchpad's fractions add up until they make one.
    flushWheel() {
        const steps = Math.trunc(this.wheelSteps);
        if (steps === 0) return;
        this.wheelSteps -= steps;
        this.connection.send({ type: 'wheel', seq: this.nextSeq(), delta: steps });
    }

    // ---- Status ----

    showStatus() {
        const view = this.studio.state.view;
        const status = this.status;
        if (!view) {
            status.textContent = '';
            return;
        }
        const parts = [];
        for (const field of STATUS_FIELDS) {
            status.dataset[field] = String(view[field]);
            parts.push(`${field} ${Number(view[field]).toFixed(2)}`);
        }
        if (Array.isArray(view.position)) {
            status.dataset.position = view.position.join(' ');
            parts.push(`position ${view.position.map((p) => Number(p).toFixed(3)).join(', ')}`);
        }
        status.textContent = parts.join('   ');
    }
}
